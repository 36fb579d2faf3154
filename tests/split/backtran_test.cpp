#include "split/backtran.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "split/guards.hpp"

namespace vardel {
namespace {

TEST(Backtran, PointsAndGuards) {
  const double inf = std::numeric_limits<double>::infinity();
  const struct {
    double lambda, shift, c, expected;
  } cases[] = {
      {0.5, -1, 3, 5.25},                              // (1.5 + 1)^2 - 1
      {-0.5, 1, (std::pow(4.0, -0.5) - 1) / -0.5, 5},  // undoes the power, adds shift
      {-2, 0.5, 1, 0.5},                               // u = -1: the low end, shift
      {-1, 0, 1, inf},                                 // u = 0 with a negative power
      {0, 2, std::log(5.0), 7},                        // exp undoes log
  };
  for (const auto& c : cases) {
    std::vector<double> cut = {kLowGuard, c.c, kHighGuard};
    backtran(cut, c.lambda, c.shift);
    EXPECT_DOUBLE_EQ(cut[1], c.expected) << c.lambda;
    EXPECT_EQ(cut[0], kLowGuard);
    EXPECT_EQ(cut[2], kHighGuard);
  }
}

}  // namespace
}  // namespace vardel
