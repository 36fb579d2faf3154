// cost_info: the cost report of the final tree, appended to the output file.
#include "report/cost_report.hpp"

#include <fstream>
#include <stdexcept>
#include <string>

#include "numerics/format.hpp"
#include "report/class_matrix.hpp"
#include "run/init.hpp"

namespace vardel {
namespace {

void resubstitution_report(std::ostream& out, const Init& in) {
  FArray<int> table(in.nclass, in.nclass, 0);
  resub_tree(1, table);
  const CostAndSe est = resubstitution_cost(table);

  write_list(out, {});
  write_list(out, {" Classification Matrix :         Predicted class"});
  write_class_matrix(out, table, in.noc, in.prob);
  int n = 0;
  for (const int count : in.noc) n += count;
  const std::string d = std::to_string(count_width(table, in.noc));
  write_fmt(out, join_text({"(1x,a,i", d, ",a,i", d, ")"}),
            {" Total obs = ", n, ",    # correct = ", diagonal_sum(table)});
  write_fmt(out, "(1x,a,g13.4)", {" Resubstitution misclassification cost =", est.cost});
  write_fmt(out, "(1x,a,g13.4)", {" S.E. of resubstitution misclassification cost =", est.se});

  if (in.treesize == 1) {
    write_list(out, {});
    write_fmt(out, "(1x,a,g13.4)", {" Cross-validation error cost from pruning =", in.prunecost});
    write_fmt(out, "(1x,a,g13.4)", {" S.E. of CV misclassification cost =", in.prunese});
  }
}

}  // namespace

CostAndSe resubstitution_cost(const FArray<int>& table) {
  const Init& in = init();
  return table_cost(table, in.noc, in.prob, in.cost);
}

void cost_info() {
  const Init& in = init();
  if (in.splittype != 1 && in.splittype != 2)
    throw std::logic_error("cost_info: split type 3 has its own report (cost_info_2v)");
  {
    std::ofstream out(std::string(trim(in.outfile)), std::ios::app);
    resubstitution_report(out, in);
  }
  // The overall cross-validation estimate (testtype 1: cverr, which destroys
  // the store, so it must stay last) and the test-sample estimate with the
  // prediction file (testtype 2: testimp, pour_test or pour_test_print, the
  // majority check) follow here once their routines exist. testtype 3 (no
  // test data) ends the report with the lines above.
  if (in.testtype == 1 || in.testtype == 2)
    throw std::logic_error("cost_info: cross-validation and test-sample estimates not built yet");
}

}  // namespace vardel
