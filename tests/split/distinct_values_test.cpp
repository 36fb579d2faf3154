#include "split/distinct_values.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

namespace vardel {
namespace {

// Every case's value is found again through the index, bit for bit.
void expect_round_trip(const DistinctValues& d, const std::vector<double>& x) {
  ASSERT_EQ(d.index().size(), x.size());
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double back = d.values()[static_cast<std::size_t>(d.index()[i])];
    EXPECT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(x[i])) << i;
  }
}

TEST(DistinctValues, KeepsFirstAppearanceOrderAndTellsValuesApartByBits) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const std::vector<double> x = {2.5, -0.0, 2.5, 0.0, 1e300, -0.0, nan, 0.1 + 0.2, 0.3, nan};
  DistinctValues d;
  ASSERT_TRUE(d.build(x, x.size()));
  ASSERT_EQ(d.values().size(), 7u);  // 0.1 + 0.2 and 0.3 differ in the last bit
  EXPECT_EQ(d.values()[0], 2.5);
  EXPECT_TRUE(std::signbit(d.values()[1]));
  EXPECT_FALSE(std::signbit(d.values()[2]));
  EXPECT_EQ(d.index()[9], d.index()[6]);  // the same NaN bits are one value
  expect_round_trip(d, x);
}

TEST(DistinctValues, GivesUpPastTheLimitAndCanBeBuiltAgain) {
  std::vector<double> x;
  for (int i = 0; i < 5000; ++i) x.push_back(static_cast<double>(i % 40) * 0.125 - 2.0);
  DistinctValues d;
  EXPECT_TRUE(d.build(x, 40));  // exactly at the limit
  expect_round_trip(d, x);
  EXPECT_FALSE(d.build(x, 39));
  EXPECT_TRUE(d.values().empty());

  // Many values, most repeated, in a table that must grow past its first size.
  std::vector<double> y;
  for (int i = 0; i < 100000; ++i) y.push_back(std::round(std::sin(i) * 1e4) / 1e3);
  ASSERT_TRUE(d.build(y, y.size() / 2));
  EXPECT_LE(d.values().size(), 20002u);  // -10 .. 10 by 0.001, and -0.0
  expect_round_trip(d, y);

  EXPECT_TRUE(d.build({}, 0));
  EXPECT_TRUE(d.index().empty());
}

}  // namespace
}  // namespace vardel
