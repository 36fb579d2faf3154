#include "run/option_availability.hpp"

#include <fstream>
#include <iostream>

#include "numerics/format.hpp"
#include "run/init.hpp"
#include "run/stop.hpp"

namespace vardel {

const char* unavailable_option() {
  const Init& in = init();
  if (in.splittype == 2) return "linear combination splits";
  if (in.splittype == 3) return "univariate splits with bivariate node models";
  if (in.varsel == 1) return "variable selection via the 2D method";
  if (in.impbuild == 4 && in.misslearn == 'y')
    return "global imputation of the learning sample at the root node";
  if (in.impprune == 6) return "proxy splits for missing values in the pruning sample";
  if (in.impprune == 1 && in.testtype == 2 && in.misstest == 'y')
    return "global imputation of the test sample";
  if (in.wantlatex == 2) return "latex code of the tree";
  if (in.wantallclear == 2) return "allCLEAR code of the tree";
  if (in.wantplot == 1) return "Splus or R code for scatter plots";
  return nullptr;
}

void stop_if_unavailable() {
  const char* missing = unavailable_option();
  if (missing == nullptr) return;
  const std::initializer_list<FmtItem> line = {"  ***ERROR*** Not available in this version: ",
                                               missing};
  write_fmt(std::cout, "(a,a)", line);
  std::ofstream out(std::string(trim(init().outfile)), std::ios::app);
  write_fmt(out, "(a,a)", line);
  stop_run(4);
}

}  // namespace vardel
