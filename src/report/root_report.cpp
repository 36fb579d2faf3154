#include "report/root_report.hpp"

#include <fstream>

#include "numerics/format.hpp"
#include "run/init.hpp"
#include "tree/node_class.hpp"

namespace vardel {

void report_root_node(const char* missing) {
  const Init& in = init();
  FArray<double> pr;
  FArray<double> altpr;
  const NodeClass found =
      geticlasswithtie(in.noc.span(), in.noc.span(), in.prob.span(), in.nobs, altpr, pr);
  const double rt = getrt(pr);

  std::ofstream out(std::string(trim(in.outfile)), std::ios::app);
  write_fmt(out, "(a,a,a)", {" This version cannot yet grow trees with ", missing, ";"});
  write_fmt(out, "(a)", {" the tree is left at its root node."});
  write_fmt(out, "(a)", {" Root node (the tree before any split):"});
  write_fmt(out, "(a,i10)", {"   Number of learning samples in node: ", in.nobs});
  write_fmt(out, "(a,a)", {"   Predicted class: ", trim(in.clabel(found.iclass))});
  write_fmt(out, "(a,f10.5)", {"   Misclassification cost: ", rt});
  write_list(out, {});
}

}  // namespace vardel
