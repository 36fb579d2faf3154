#include "report/cost_report.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report/class_matrix.hpp"
#include "support/harness.hpp"

namespace vardel {
namespace {

using testing_support::WorkFolder;

std::string stored(const char* s) {
  return fixed_text(s, kNameLen);
}

// Record of a node: n, iclass, rt, class counts. Inner-node fields are not
// read by the cost report, so inner nodes carry the same short record.
std::vector<double> node(int n, int iclass, std::vector<double> counts) {
  std::vector<double> y{double(n), double(iclass), 0.0};
  y.insert(y.end(), counts.begin(), counts.end());
  return y;
}

// A run of split type 1 without test data, unit costs, classes with the given
// labels, learning counts and priors; the tree store started.
void setup_run(std::vector<const char*> labels, std::vector<int> noc, std::vector<double> prob) {
  Init& in = init();
  const int k = static_cast<int>(labels.size());
  in.outfile = fixed_text("out.txt", kFileNameLen);
  in.nclass = k;
  in.nvar = 1;
  in.splittype = 1;
  in.testtype = 3;
  in.clabel.assign(k, stored(""));
  in.noc.assign(k, 0);
  in.prob.assign(k, 0.0);
  in.cost.assign(k, k, 1.0);
  for (int j = 1; j <= k; ++j) {
    in.clabel(j) = stored(labels[j - 1]);
    in.noc(j) = noc[j - 1];
    in.prob(j) = prob[j - 1];
    in.cost(j, j) = 0.0;
  }
  compute_record_positions(in);
  tree_store().start();
}

// Classes yes, no, maybe (reported as maybe, no, yes) with 30, 12 and 8
// learning cases. Root 1 splits into 2, 3 (empty) and 4; node 4 into 11, 12
// and 13. Resubstitution table (predicted, true):
//   yes:   30  3  0
//   no:     0  3  2
//   maybe:  0  6  6
void three_class_tree() {
  setup_run({"yes", "no", "maybe"}, {30, 12, 8}, {0.6, 0.24, 0.16});
  TreeStore& store = tree_store();
  store.add_node(1, 0, node(50, 1, {30, 12, 8}));
  store.add_node(2, 1, node(30, 1, {27, 3, 0}));
  // A terminal node without a class; the counts are ones a walk that ignored
  // iclass 0 would pick up.
  store.add_node(3, 1, node(0, 0, {1, 1, 1}));
  store.add_node(4, 1, node(20, 2, {3, 9, 8}));
  store.add_node(11, 4, node(5, 2, {0, 3, 2}));
  store.add_node(12, 4, node(12, 3, {0, 6, 6}));
  store.add_node(13, 4, node(3, 1, {3, 0, 0}));
}

class CostReport : public ::testing::Test {
 protected:
  void SetUp() override { testing_support::fresh_run_state(); }
  std::string report() {
    cost_info();
    return folder.read("out.txt");
  }
  WorkFolder folder;
};

TEST_F(CostReport, ResubstitutionTableSkipsInnerAndClasslessNodes) {
  three_class_tree();
  FArray<int> table(3, 3, 0);
  resub_tree(1, table);
  const std::vector<int> expected{30, 0, 0, 3, 3, 6, 0, 2, 6};  // column by column
  EXPECT_EQ(table.vector(), expected);
  EXPECT_EQ(diagonal_sum(table), 39);

  // A subtree adds only its own leaves, onto what the table holds.
  resub_tree(4, table);
  EXPECT_EQ(table(2, 2), 6);
  EXPECT_EQ(table(1, 1), 33);
}

TEST_F(CostReport, CostAndSeAgainstHandComputation) {
  struct Case {
    const char* name;
    std::vector<double> prob;
    std::vector<double> cost;  // cost(p, a), column by column
    double want_cost, want_se;
  };
  const std::vector<Case> cases{
      // Estimated priors and unit costs: 11 of 50 misclassified;
      // variance 0.0576/12 * 0.1875 + 0.0256/8 * 0.1875 = 0.0015.
      {"estimated priors",
       {0.6, 0.24, 0.16},
       {0, 1, 1, 1, 0, 1, 1, 1, 0},
       0.22,
       0.038729833462074169},
      // Given priors with unequal costs: T1 = (0, 9, 6), T2 = (0, 13.5, 18);
      // cost 0.3*9/12 + 0.2*6/8, variance 0.0075*0.5625 + 0.005*1.6875.
      {"given priors, unequal costs",
       {0.5, 0.3, 0.2},
       {0, 1, 5, 2, 0, 0.5, 4, 3, 0},
       0.375,
       0.1125},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    testing_support::fresh_run_state();
    three_class_tree();
    Init& in = init();
    for (int j = 1; j <= 3; ++j) in.prob(j) = c.prob[j - 1];
    for (int i = 1; i <= 9; ++i) in.cost(i) = c.cost[i - 1];
    FArray<int> table(3, 3, 0);
    resub_tree(1, table);
    const CostAndSe est = resubstitution_cost(table);
    EXPECT_NEAR(est.cost, c.want_cost, 1e-15);
    EXPECT_NEAR(est.se, c.want_se, 1e-15);
  }
}

// Classes listed by first letter; rows are true classes, columns predicted.
TEST_F(CostReport, PrunedTreeReport) {
  three_class_tree();
  init().treesize = 1;
  init().prunecost = 0.3;
  init().prunese = 0.0625;
  const std::string want =
      "\n"
      "  Classification Matrix :         Predicted class\n"
      "  Actual class maybe    no   yes   Prior #obs\n"
      "  -------------------------------------------\n"
      "  maybe            6     2     0   0.160   8\n"
      "  no               6     3     3   0.240  12\n"
      "  yes              0     0    30   0.600  30\n"
      "  -------------------------------------------\n"
      "  Total obs = 50,    # correct = 39\n"
      "  Resubstitution misclassification cost =   0.2200    \n"
      "  S.E. of resubstitution misclassification cost =   0.3873E-01\n"
      "\n"
      "  Cross-validation error cost from pruning =   0.3000    \n"
      "  S.E. of CV misclassification cost =   0.6250E-01\n";
  EXPECT_EQ(report(), want);
}

// A 21-character label widens the label and count columns; four-digit counts
// widen the case counts. Without pruning the report ends at the SE.
TEST_F(CostReport, LongLabelsWidenColumnsAndUnprunedTreeHasNoPruningLines) {
  setup_run({"malignant_tumour_type", "benign"}, {1000, 250}, {0.5, 0.5});
  init().splittype = 2;
  init().treesize = 2;
  init().prunecost = 0.5;
  TreeStore& store = tree_store();
  store.add_node(1, 0, node(1250, 1, {1000, 250}));
  store.add_node(2, 1, node(1010, 1, {1000, 10}));
  store.add_node(3, 1, node(240, 2, {0, 240}));

  const std::string want =
      "\n"
      "  Classification Matrix :         Predicted class\n"
      "           Actual class                benign malignant_tumour_type   Prior #obs\n"
      "  ------------------------------------------------------------------------------\n"
      "  benign                                  240                    10   0.500   250\n"
      "  malignant_tumour_type                     0                  1000   0.500  1000\n"
      "  ------------------------------------------------------------------------------\n"
      "  Total obs = 1250,    # correct = 1240\n"
      "  Resubstitution misclassification cost =   0.2000E-01\n"
      "  S.E. of resubstitution misclassification cost =   0.6197E-02\n";
  EXPECT_EQ(report(), want);
}

}  // namespace
}  // namespace vardel
