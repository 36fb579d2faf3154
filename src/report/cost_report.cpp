// cost_info: the cost report of the final tree, appended to the output file.
#include "report/cost_report.hpp"

#include <cmath>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "numerics/format.hpp"
#include "prune/pour_test.hpp"
#include "prune/pour_test_print.hpp"
#include "prune/test_cost.hpp"
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

// The test sample poured through the final tree (writing the prediction file
// when asked), its classification matrix, cost and SE. When predicting every
// case as one class costs strictly less, the report says so and shows that
// rule's matrix and cost; the prediction file keeps the tree's predictions.
void test_sample_report(Init& in) {
  if (in.impprune == 1 && in.misstest == 'y')
    throw std::logic_error("cost_info: imputation of a test sample by node means not built yet");
  const int k = in.nclass;
  FArray<int> table(k, k, 0);
  if (in.wantpredict == 2) {
    write_fmt(std::cout, "(a,a)",
              {"  Prediction results are stored in file: ", trim(in.predictfile)});
    FArray<int> termid;
    pour_test_print(table, in.xtest, in.ytest.span(), in.misindtest, in.ntest, termid);
  } else {
    pour_test(table, in.xtest, in.ytest.span(), in.misindtest, in.ntest);
  }
  const FArray<int> noc = column_sums(table);
  int n = 0;
  for (const int count : noc) n += count;

  double cost = test_cost(table, n).cost;
  bool majority = false;
  FArray<int> table1(k, k, 0);
  for (int i = 1; i <= k; ++i) {
    table1.fill(0);
    for (int j = 1; j <= k; ++j) table1(i, j) = noc(j);
    const double c = test_cost(table1, n).cost;
    if (c < cost) {
      table = table1;
      cost = c;
      majority = true;
    }
  }
  const double se = std::sqrt(test_cost(table, n).variance);

  std::ofstream out(std::string(trim(in.outfile)), std::ios::app);
  if (majority) {
    write_list(out, {});
    write_list(out, {"Majority rule is better than the induced rule."});
    write_list(out, {"Use majority rule for prediction of test sample."});
  }
  write_list(out, {});
  write_list(out, {" Classification Matrix for Test Data"});
  write_list(out, {"                 Predicted Class"});
  write_class_matrix(out, table, noc, in.prob);
  write_list(out,
             {" Total obs in Test sample = ", in.ntest, ",    # correct = ", diagonal_sum(table)});
  write_fmt(out, "(1x,a,g13.4)", {" Overall test data estimate of misclassification cost =", cost});
  write_fmt(out, "(1x,a,g13.4)", {" S.E. of test data misclassification cost =", se});
}

}  // namespace

CostAndSe resubstitution_cost(const FArray<int>& table) {
  const Init& in = init();
  return table_cost(table, in.noc, in.prob, in.cost);
}

void cost_info() {
  Init& in = init();
  if (in.splittype != 1 && in.splittype != 2)
    throw std::logic_error("cost_info: split type 3 has its own report (cost_info_2v)");
  {
    std::ofstream out(std::string(trim(in.outfile)), std::ios::app);
    resubstitution_report(out, in);
  }
  // testtype 3 (no test data) ends the report with the lines above. The
  // overall cross-validation estimate (testtype 1: cverr, which destroys the
  // store, so it must stay last) follows here once its routine exists.
  if (in.testtype == 2) test_sample_report(in);
  if (in.testtype == 1)
    throw std::logic_error("cost_info: overall cross-validation estimate not built yet");
}

}  // namespace vardel
