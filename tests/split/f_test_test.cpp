#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "split/class_moments.hpp"
#include "split/node_data.hpp"
#include "split/select_numeric.hpp"

namespace vardel {
namespace {

using split_test::columns;
using split_test::f2_upper_tail;
using split_test::missing_where;

constexpr double kMissing = -99.0;

// Column 1: classes 1..3 with two cases each, means 2, 5, 8; class 4 empty.
// Column 2: the same values with both cases of class 1 missing.
struct ThreeClassNode {
  FArray<double> x = columns({{1, 3, 4, 6, 7, 9}, {kMissing, kMissing, 4, 6, 7, 9}});
  std::vector<int> y{1, 1, 2, 2, 3, 3};
  std::vector<int> noc{2, 2, 2, 0};
};

TEST(ClassMoments, MeanSquaresAndFTestByHand) {
  ThreeClassNode node;
  Moments all;
  meanss(node.x, node.y, node.noc, 3, all);
  for (int k = 1; k <= 4; ++k) EXPECT_EQ(all.xmean(k, 1), (std::vector<double>{2, 5, 8, 0}[k - 1]));
  EXPECT_EQ(all.gmean(1), 5.0);
  EXPECT_EQ(all.mst(1), 18.0);  // (2*9 + 0 + 2*9) / 2
  EXPECT_EQ(all.mse(1), 2.0);   // 6 / 3
  EXPECT_DOUBLE_EQ(all.tss(1), 42.0 / 5.0);
  const Pick p1 = select1(all, std::string("nc"));
  EXPECT_EQ(p1.var, 1);
  EXPECT_EQ(p1.stat, 9.0);
  EXPECT_NEAR(p1.p, f2_upper_tail(9.0, 3.0), 1e-15);

  // Column 2 over its 4 present cases and 2 classes: F = 4.5 on 1 and 2 df,
  // whose upper tail is 1 - sqrt(F / (F + 2)).
  Moments present;
  meanss1(node.x, missing_where(node.x, kMissing), node.y, 4, present);
  EXPECT_EQ(present.gmean(2), 6.5);
  EXPECT_EQ(present.mst(2), 9.0);  // 2*1.5^2 + 2*1.5^2 over 1
  EXPECT_EQ(present.mse(2), 2.0);  // 4 / 2
  EXPECT_DOUBLE_EQ(present.tss(2), 13.0 / 3.0);
  const Pick p3 = select3(present, std::string("cn"));
  EXPECT_EQ(p3.var, 2);
  EXPECT_NEAR(p3.p, 1.0 - std::sqrt(4.5 / 6.5), 1e-14);
}

// Moments with only what the selections read.
Moments by_hand(std::vector<double> mst, std::vector<double> mse, std::vector<int> n, int m) {
  Moments mom;
  const auto nvar = static_cast<int>(mst.size());
  mom.mst.assign(nvar);
  mom.mse.assign(nvar);
  mom.n_used.assign(nvar);
  mom.m_used.assign(nvar, m);
  for (int j = 1; j <= nvar; ++j) {
    mom.mst(j) = mst[j - 1];
    mom.mse(j) = mse[j - 1];
    mom.n_used(j) = n.size() == 1 ? n[0] : n[j - 1];
  }
  return mom;
}

TEST(SelectNumeric, Select1Choices) {
  struct Case {
    const char* what;
    std::string vtype;
    std::vector<double> mst, mse;
    int n, var;
    double stat, p;
  };
  const double p2 = f2_upper_tail(2.0, 7.0);
  // clang-format off
  const Case cases[] = {
      {"first perfect separator", "ncnnn", {5, 1, 1, 1, 1e6}, {1, 0, 0, 0, 1e-3}, 10, 3, kHugeF, 0},
      {"constant is no separator", "nn", {0, 2}, {0, 1}, 10, 2, 2.0, p2},
      {"all constant: first, p 1", "cnn", {1, 0, 0}, {1, 0, 0}, 10, 2, 0.0, 1.0},
      {"tie keeps the earlier", "nn", {4, 4}, {2, 2}, 10, 1, 2.0, p2},
      {"no within df: p 1", "n", {1}, {0}, 3, 1, 0.0, 1.0},
  };
  // clang-format on
  for (const Case& c : cases) {
    const Pick pick = select1(by_hand(c.mst, c.mse, {c.n}, 3), c.vtype);
    EXPECT_EQ(pick.var, c.var) << c.what;
    EXPECT_EQ(pick.stat, c.stat) << c.what;
    EXPECT_NEAR(pick.p, c.p, 1e-15) << c.what;
  }
}

TEST(SelectNumeric, Select3ComparesPerVariableP) {
  // Equal F, but more within degrees of freedom make the second more significant.
  Pick pick = select3(by_hand({3, 3}, {1, 1}, {5, 103}, 3), "nn");
  EXPECT_EQ(pick.var, 2);
  EXPECT_NEAR(pick.p, f2_upper_tail(3.0, 100.0), 1e-15);

  // p-values underflow to 0: the larger F wins, a tie keeping the earlier.
  pick = select3(by_hand({1e200, 2e200, 2e200}, {1e-50, 1e-50, 1e-50}, {1003}, 3), "nnn");
  EXPECT_EQ(pick.var, 2);
  EXPECT_EQ(pick.p, 0.0);
  EXPECT_EQ(pick.stat, 2e250);
}

TEST(SelectNumeric, Select5RanksMainAndAlternate) {
  struct Case {
    const char* what;
    std::string vtype;
    std::vector<double> mst, mse;
    int first, second;
    double second_p;
  };
  const std::vector<double> ones{1, 1, 1};
  const std::vector<double> small(3, 1e-50);
  // clang-format off
  const Case cases[] = {
      {"equal p keep column order", "nnn", {1, 5, 5}, ones, 2, 3, f2_upper_tail(5.0, 1000.0)},
      {"underflow: last two on F", "nnn", {1e200, 5e199, 1e200}, small, 3, 1, 0.0},
      {"perfect ones rank on F", "nnn", ones, {0.5, 0, 0}, 3, 2, 0.0},
      {"alternate not numerical", "cnc", {1, 5, 1}, ones, 2, 2, kUntestedP},
  };
  // clang-format on
  for (const Case& c : cases) {
    const TwoBest two = select5(by_hand(c.mst, c.mse, {1003}, 3), c.vtype);
    EXPECT_EQ(two.first.var, c.first) << c.what;
    EXPECT_EQ(two.second.var, c.second) << c.what;
    EXPECT_NEAR(two.second.p, c.second_p, 1e-15) << c.what;
  }
}

}  // namespace
}  // namespace vardel
