// CV cost and SE of each subtree against hand computations, and the SE rule.
#include "prune/cv_costs.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace vardel {
namespace {

// Two classes, two subtrees of interest. Predicting 2 for class 1 costs 2,
// predicting 1 for class 2 costs 1. Ten cases of each class.
struct TwoClassSample {
  ClassTables table{2, 1};
  FArray<double> cost{2, 2, 0.0};
  FArray<double> prob{2, 0.0};
  FArray<int> noc{2, 10};
  TwoClassSample() {
    cost(2, 1) = 2.0;
    cost(1, 2) = 1.0;
    prob(1) = 0.25;
    prob(2) = 0.75;
    // Largest tree: 2 of class 1 and 3 of class 2 misclassified.
    table(1, 1, 0) = 8;
    table(2, 1, 0) = 2;
    table(1, 2, 0) = 3;
    table(2, 2, 0) = 7;
    // Root: everything predicted class 1.
    table(1, 1, 1) = 10;
    table(1, 2, 1) = 10;
  }
};

TEST(SubtreeCosts, EstimatedPriorsUseTheLearningSampleSize) {
  TwoClassSample s;
  const auto c = subtree_costs(s.table, s.cost, 2, s.prob, s.noc, 20);
  ASSERT_EQ(c.size(), 2u);
  // T1 = (4, 3), T2 = (8, 3): R = 7/20, M = 11/20.
  EXPECT_DOUBLE_EQ(c[0].total, 0.35);
  EXPECT_DOUBLE_EQ(c[0].se, std::sqrt((0.55 - 0.35 * 0.35) / 20.0));
  // T1 = T2 = (0, 10).
  EXPECT_DOUBLE_EQ(c[1].total, 0.5);
  EXPECT_DOUBLE_EQ(c[1].se, std::sqrt(0.25 / 20.0));
}

TEST(SubtreeCosts, GivenPriorsWeightEachClassByPriorOverCount) {
  TwoClassSample s;
  for (int priortype : {1, 3}) {
    const auto c = subtree_costs(s.table, s.cost, priortype, s.prob, s.noc, 20);
    // R = 4 (0.25 / 10) + 3 (0.75 / 10), M = 8 (0.25 / 10) + 3 (0.75 / 10).
    EXPECT_DOUBLE_EQ(c[0].total, 0.325);
    EXPECT_DOUBLE_EQ(c[0].se, std::sqrt((0.425 - 0.325 * 0.325) / 20.0));
    EXPECT_DOUBLE_EQ(c[1].total, 0.75);
    EXPECT_DOUBLE_EQ(c[1].se, std::sqrt((0.75 - 0.75 * 0.75) / 20.0));
  }
}

TEST(ClassTables, AddSumsEntryByEntry) {
  ClassTables a(2, 1), b(2, 1);
  a(2, 1, 1) = 3;
  b(2, 1, 1) = 4;
  b(1, 2, 0) = 5;
  a.add(b);
  EXPECT_EQ(a(2, 1, 1), 7);
  EXPECT_EQ(a(1, 2, 0), 5);
  // The flat block of a subtree is column-major: (1, 2) is its third entry.
  EXPECT_EQ(a.table(0)(3), 5);
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
