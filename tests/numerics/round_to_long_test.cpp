#include "numerics/round_to_long.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace vardel {
namespace {

TEST(RoundToLong, AgreesWithLroundOnWholeAndFractionalValues) {
  const double values[] = {
      0.0,  -0.0, 1.0,    6.0,     -3.0,     2.5,      -2.5,     0.49999999999999994,
      1e15, 4e15, 4.5e15, -4.5e15, 1e18 + 3, 7.000001, 6.999999, -1e-300};
  for (double v : values) EXPECT_EQ(round_to_long(v), std::lround(v)) << v;
}

}  // namespace
}  // namespace vardel
