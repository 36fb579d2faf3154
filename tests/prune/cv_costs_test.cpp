// CV cost and SE of each subtree against hand computations, and the SE rule.
#include "prune/cv_costs.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace vardel {
namespace {

// Two classes, ten cases each, 20 in all. Predicting 2 for class 1 costs 2,
// predicting 1 for class 2 costs 1. In the largest tree 2 cases of class 1
// and 3 of class 2 are misclassified; the root predicts class 1 for all, so
// T1 = (4, 3), T2 = (8, 3) for subtree 0 and T1 = T2 = (0, 10) for subtree 1.
TEST(SubtreeCosts, HandComputedForEachPriorOption) {
  ClassTables table(2, 1);
  table(1, 1, 0) = 8, table(2, 1, 0) = 2, table(1, 2, 0) = 3, table(2, 2, 0) = 7;
  table(1, 1, 1) = 10, table(1, 2, 1) = 10;
  FArray<double> cost(2, 2, 0.0);
  cost(2, 1) = 2.0, cost(1, 2) = 1.0;
  FArray<double> prob(2, 0.0);
  prob(1) = 0.25, prob(2) = 0.75;
  const FArray<int> noc(2, 10);

  struct {
    int priortype;
    double r0, m0, r1, m1;  // cost and second moment of subtrees 0 and 1
  } const cases[] = {
      // Per class over N: R = 7/20, M = 11/20; then 10/20 twice.
      {2, 0.35, 0.55, 0.5, 0.5},
      // Per class prior over class count: R = 4 (0.25/10) + 3 (0.75/10),
      // M = 8 (0.25/10) + 3 (0.75/10); then 10 (0.75/10) twice.
      {1, 0.325, 0.425, 0.75, 0.75},
      {3, 0.325, 0.425, 0.75, 0.75},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.priortype);
    const auto r = subtree_costs(table, cost, c.priortype, prob, noc, 20);
    ASSERT_EQ(r.size(), 2u);
    EXPECT_DOUBLE_EQ(r[0].total, c.r0);
    EXPECT_DOUBLE_EQ(r[0].se, std::sqrt((c.m0 - c.r0 * c.r0) / 20.0));
    EXPECT_DOUBLE_EQ(r[1].total, c.r1);
    EXPECT_DOUBLE_EQ(r[1].se, std::sqrt((c.m1 - c.r1 * c.r1) / 20.0));
  }
}

struct ChoiceCase {
  const char* name;
  std::vector<double> total;
  std::vector<double> se;
  double talpha0_1;
  double serule;
  int zero_se;
  int given_se;
};

TEST(ChooseTree, SeRule) {
  const ChoiceCase cases[] = {
      // Equal least costs: the later, smaller tree is the 0-SE tree.
      {"tie", {0.5, 0.3, 0.3, 0.6}, {0.1, 0.1, 0.1, 0.1}, 1.0, 0.0, 2, 2},
      // The given-SE scan starts at the smallest tree: subtree 3 (0.34) is
      // within 0.30 + 0.05 although subtree 2 on the way up is not.
      {"from smallest", {0.40, 0.30, 0.45, 0.34, 0.9}, {0.1, 0.05, 0.1, 0.1, 0.1}, 1.0, 1.0, 1, 3},
      // No SEs: the last tree at the least cost.
      {"zero SEs", {0.5, 0.3, 0.4, 0.3, 0.3, 0.7}, {0.2, 0.2, 0.2, 0.2, 0.2, 0.2}, 1.0, 0.0, 4, 4},
      // SE 0 at the 0-SE tree: nothing but its own cost qualifies.
      {"se zero", {0.5, 0.2, 0.2000001, 0.25}, {0.1, 0.0, 0.1, 0.1}, 1.0, 2.0, 1, 1},
      // Two SEs reach the root row.
      {"root", {0.30, 0.25, 0.27, 0.32}, {0.0, 0.04, 0.0, 0.0}, 1.0, 2.0, 1, 3},
      {"one subtree", {0.2, 0.4}, {0.1, 0.1}, 1.0, 1.0, 0, 0},
      // A first step at exactly the tolerance is not free.
      {"tolerance", {0.1, 0.2, 0.3}, {0.0, 0.0, 0.0}, 2.220446049250313e-16, 1.0, 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    std::vector<SubtreeCost> costs;
    for (std::size_t s = 0; s < c.total.size(); ++s) costs.push_back({c.total[s], c.se[s]});
    const TreeChoice choice = choose_tree(costs, c.talpha0_1, c.serule);
    EXPECT_EQ(choice.zero_se, c.zero_se);
    EXPECT_EQ(choice.given_se, c.given_se);
    EXPECT_EQ(costs[0].total, c.total[0]);
  }
}

TEST(ChooseTree, FreeFirstStepRaisesTheLargestTree) {
  // The largest tree is cheapest, but pruning it once costs nothing.
  std::vector<SubtreeCost> costs = {{0.1, 0.0}, {0.2, 0.05}, {0.3, 0.0}};
  const TreeChoice choice = choose_tree(costs, 1.0e-17, 1.0);
  EXPECT_EQ(costs[0].total, 0.2 + 0.009999999776482582);
  EXPECT_EQ(choice.zero_se, 1);
  EXPECT_EQ(choice.given_se, 1);
}

}  // namespace
}  // namespace vardel
