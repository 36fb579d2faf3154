#include "split/levene.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "split/class_moments.hpp"
#include "split/node_data.hpp"

namespace vardel {
namespace {

using split_test::columns;
using split_test::f2_upper_tail;
using split_test::missing_where;

constexpr double kMissing = 1000.0;

TEST(Levene, FindsSpreadThatTheFTestMisses) {
  // Every class mean is 0. Column 1: equal spread; column 2: categorical, never
  // tested; column 3: spread growing with the class. Its deviations from the
  // grand mean 0 have class means 1, 2, 3.5 about 2.5: between 9/2, within 1/5,
  // F 22.5 on 2 and 5 df. Cases 9 and 10 (class 1) are missing in column 3.
  const FArray<double> x = columns({{-1, 1, -1, 1, -1, 1, -1, 1, 1, 1},
                                    {1, 9, 1, 9, 1, 1, 1, 1, 1, 1},
                                    {-1, 1, -2, 2, -3, 3, -4, 4, kMissing, kMissing}});
  const FArray<char> mis = missing_where(x, kMissing);
  const std::vector<int> y{1, 1, 2, 2, 3, 3, 3, 3, 1, 1};
  const double p = f2_upper_tail(22.5, 5.0);

  Moments mom;
  meanss1(x, mis, y, 3, mom);
  EXPECT_EQ(mom.mst(3), 0.0);
  Pick pick = select6(x, mis, y, 3, mom.gmean.span(), "ncn");
  EXPECT_EQ(pick.var, 3);
  EXPECT_DOUBLE_EQ(pick.stat, 22.5);
  EXPECT_NEAR(pick.p, p, 1e-16);

  // The first 8 cases, complete: select2 and select4 agree with select6 above.
  const FArray<double> x8 = columns(
      {{-1, 1, -1, 1, -1, 1, -1, 1}, {1, 9, 1, 9, 1, 1, 1, 1}, {-1, 1, -2, 2, -3, 3, -4, 4}});
  const std::vector<int> y8(y.begin(), y.begin() + 8);
  const std::vector<int> noc{2, 2, 4};
  meanss(x8, y8, noc, 3, mom);
  for (const Pick& pk : {select2(x8, y8, noc, mom.gmean.span(), "ncn"),
                         select4(x8, y8, noc, mom.gmean.span(), "ncn")}) {
    EXPECT_EQ(pk.var, 3);
    EXPECT_DOUBLE_EQ(pk.stat, 22.5);
    EXPECT_NEAR(pk.p, p, 1e-16);
  }

  // A variable with a single present case is not tested at all.
  FArray<double> x1 = x;
  for (int i = 2; i <= 10; ++i) x1(i, 1) = kMissing;
  EXPECT_EQ(select6(x1, missing_where(x1, kMissing), y, 3, mom.gmean.span(), "ncc").var, 0);
}

TEST(Levene, Anova1DegenerateCases) {
  struct Case {
    const char* what;
    std::vector<double> d;
    std::vector<int> y, noc;
    double f;
  };
  // clang-format off
  const Case cases[] = {
      {"one case per class: no within df", {1, 5}, {1, 2}, {1, 1}, 0.0},
      {"a single class present", {1, 2, 3}, {2, 2, 2}, {0, 3}, 0.0},
      {"no spread within classes", {1, 1, 3, 3}, {1, 1, 2, 2}, {2, 2}, kHugeF},
      {"one between, one within", {0, 2, 2, 4}, {1, 1, 2, 2}, {2, 2}, 2.0},
  };
  // clang-format on
  for (const Case& c : cases) EXPECT_EQ(anova1(c.d, c.y, c.noc), c.f) << c.what;
}

TEST(Levene, DeviationsAreFromTheGrandMean) {
  // Column 1: about the grand mean 5.5 the deviations 5.5, 3.5 | 4.5, 4.5 have
  // equal class means, F 0; about the class means they would separate
  // perfectly. Column 2: deviations 1, 1 | 3, 3, F the largest double, p 0.
  const FArray<double> x = columns({{0, 2, 10, 10}, {-1, 1, -3, 3}});
  const std::vector<int> y{1, 1, 2, 2};
  const std::vector<int> noc{2, 2};
  const std::vector<double> gmean{5.5, 0.0};
  Pick pick = select2(x, y, noc, gmean, "nc");
  EXPECT_EQ(pick.var, 1);
  EXPECT_EQ(pick.stat, 0.0);
  EXPECT_EQ(pick.p, 1.0);
  pick = select2(x, y, noc, gmean, "nn");
  EXPECT_EQ(pick.var, 2);
  EXPECT_EQ(pick.p, 0.0);
}

}  // namespace
}  // namespace vardel
