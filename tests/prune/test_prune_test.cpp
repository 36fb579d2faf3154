#include "prune/test_prune.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "prune/prune_tree.hpp"
#include "support/harness.hpp"
#include "support/split_tree.hpp"

namespace vardel {
namespace {

using testing_support::CaseGroup;

// cost(2, 1) = 2, cost(1, 2) = 1; q = (3 2 | 1 4), N = 10: T1 = (4, 1),
// T2 = (8, 1). Given priors (0.25, 0.75) with noc = (5, 5):
// A = 0.8 * 0.25 + 0.2 * 0.75, B = 1.6 * 0.25 + 0.2 * 0.75.
TEST(TestCost, EstimatedAndGivenPriors) {
  const struct {
    int priortype;
    double cost, variance;
  } cases[] = {{2, 0.5, (0.9 - 0.25) / 10}, {3, 0.35, (0.55 - 0.35 * 0.35) / 10}};
  for (const auto& c : cases) {
    testing_support::fresh_run_state();
    Init& in = init();
    in.nclass = 2;
    in.priortype = c.priortype;
    in.prob.assign(2, 0.25);
    in.prob(2) = 0.75;
    in.cost.assign(2, 2, 0.0);
    in.cost(2, 1) = 2.0;
    in.cost(1, 2) = 1.0;
    FArray<int> q(2, 2, 0);
    q.vector() = {3, 2, 1, 4};
    EXPECT_NEAR(test_cost(q, 10).cost, c.cost, 1e-15) << c.priortype;
    EXPECT_NEAR(test_cost(q, 10).variance, c.variance, 1e-15) << c.priortype;
  }
}

// Root split at 5 (rt 16), node 2 at 2 (rt a), node 3 at 8 (rt 3), leaves of
// rt 0 predicting 1, 2, 1, 2. The sequence prunes node 2, node 3, the root.
// Values 1, 3, 6, 9 reach the four leaves; subtree by subtree they are
// predicted  0: 1 2 1 2   1: 1 1 1 2   2: 1 1 2 2   3: 1 1 1 1.
TEST(TestPrune, ChoiceTableAndFinalTree) {
  const struct {
    const char* name;
    double a, serule;
    std::vector<CaseGroup> sample;
    std::vector<const char*> rows;  // subtrees 0..3
    bool same;                      // the 0-SE tree is the given-SE tree
    std::set<int> final_nodes;
    double kept_cost;  // init().prunecost, the given-SE tree's
  } cases[] = {
      // Errors 3, 1, 1, 3 of 10.
      {"a tie goes to the later tree; 3 SEs reach the root",
       2.0,
       3.0,
       {{3, 1, 2}, {6, 1, 1}, {9, 2, 2}, {6, 2, 1}, {1, 1, 4}},
       {" (largest)    0.300000         0.1449               4",
        "      1       0.100000         0.9487E-01           3",
        "      2*      0.100000         0.9487E-01           2",
        "      3**     0.300000         0.1449               1"},
       false,
       {1},
       0.3},
      // Errors 0, 1, 2, 2 of 5; the first step is free, so the largest tree
      // is dropped and its cost shown raised past subtree 1's.
      {"free first step",
       0.0,
       0.0,
       {{3, 2, 1}, {6, 1, 1}, {1, 1, 2}, {9, 2, 1}},
       {" (largest)    0.210000          0.000               4",
        "      1*      0.200000         0.1789               3",
        "      2       0.400000         0.2191               2",
        "      3       0.400000         0.2191               1"},
       true,
       {1, 2, 3, 6, 7},
       0.2},
      {"all costs equal",
       2.0,
       1.0,
       {{1, 1, 3}, {1, 2, 1}},
       {" (largest)    0.250000         0.2165               4",
        "      1       0.250000         0.2165               3",
        "      2       0.250000         0.2165               2",
        "      3*      0.250000         0.2165               1"},
       true,
       {1},
       0.25},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    testing_support::fresh_run_state();
    testing_support::WorkFolder folder;
    testing_support::two_class_run("no", "yes");
    Init& in = init();
    in.prunetype = 2;
    in.serule = c.serule;
    using testing_support::add_leaf, testing_support::add_split;
    add_split(1, 0, 1, 16.0, 5.0);
    add_split(2, 1, 1, c.a, 2.0);
    add_split(3, 1, 2, 3.0, 8.0);
    add_leaf(4, 2, 1, 0.0);
    add_leaf(5, 2, 2, 0.0);
    add_leaf(6, 3, 1, 0.0);
    add_leaf(7, 3, 2, 0.0);
    tree_store().scratch().open();
    tree_store().dump_tree(1);
    testing_support::set_test_sample(c.sample);
    prune_tree(in.xdata, in.cdata, in.misind);

    std::string want =
        "\n  Test sample misclassification cost and SE of subtrees:\n"
        "  Subtree        R(t)              SE       # Terminal Nodes\n";
    for (const char* row : c.rows) want += std::string(row) + "\n";
    want += "  * denotes 0-SE Tree\n  ** denotes given-SE Tree\n";
    if (c.same) want += " * tree is same as ** tree\n";
    const std::string out = folder.read("out.txt");
    EXPECT_EQ(out.substr(out.find("\n\n") + 1), want + "\n");
    std::set<int> nodes;
    for (int id = 1; id <= 7; ++id)
      if (tree_store().contains(id)) nodes.insert(id);
    EXPECT_EQ(nodes, c.final_nodes);
    EXPECT_DOUBLE_EQ(in.prunecost, c.kept_cost);
  }
}

}  // namespace
}  // namespace vardel
