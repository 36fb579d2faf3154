#include "split/ldfuni.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace vardel {
namespace {

// Class 2 has no cases and keeps a zero line. With mse 0 the variance of x
// over all cases, 14 / 3, takes its place; with none there, no lines.
TEST(Ldfuni, CommonVarianceLines) {
  const std::vector<double> xmean = {1, 4, 7}, w = {0.5, 0.25, 0.25};
  const std::vector<int> noc = {2, 0, 3};
  for (const double var : {2.0, 14.0 / 3.0}) {
    FArray<double> coef;
    ASSERT_TRUE(ldfuni(std::vector<double>{1, 2, 3, 6}, var == 2 ? 2 : 0, xmean, w, noc, coef));
    EXPECT_DOUBLE_EQ(coef(1, 2), 1 / var);
    EXPECT_DOUBLE_EQ(coef(1, 1), std::log(0.5) - 0.5 / var);
    EXPECT_EQ(coef(2, 1) + coef(2, 2), 0.0);
    EXPECT_DOUBLE_EQ(coef(3, 2), 7 / var);
    EXPECT_DOUBLE_EQ(coef(3, 1), std::log(0.25) - 24.5 / var);
  }
  for (const auto& x : {std::vector<double>{2, 2, 2}, std::vector<double>{5}}) {
    FArray<double> coef(1, 2, 9.0);
    EXPECT_FALSE(ldfuni(x, 0.0, xmean, w, noc, coef));
    EXPECT_EQ(coef, FArray<double>(3, 2, 0.0));
  }
}

}  // namespace
}  // namespace vardel
