#include "split/distinct_values.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
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

// A column long enough to be looked at in stretches: the values still come in
// order of first appearance over the whole column, whichever stretch saw them
// first.
TEST(DistinctValues, LongColumnsKeepFirstAppearanceAcrossStretches) {
  std::vector<double> x;
  for (int i = 0; i < 300000; ++i) {
    // Values 0..99 throughout, and from the middle on new values 100..149 too.
    const int v = i < 150000 ? (i * 7) % 100 : (i % 3 == 0 ? 100 + i % 50 : i % 100);
    x.push_back(static_cast<double>(v) * 0.5);
  }
  std::vector<double> first_seen;
  std::map<std::uint64_t, int> seen;
  for (double v : x)
    if (seen.emplace(std::bit_cast<std::uint64_t>(v), 0).second) first_seen.push_back(v);
  DistinctValues d;
  ASSERT_TRUE(d.build(x, x.size() / 2));
  EXPECT_EQ(std::vector<double>(d.values().begin(), d.values().end()), first_seen);
  expect_round_trip(d, x);
  EXPECT_TRUE(d.build(x, 300));
  EXPECT_FALSE(d.build(x, 149));
  EXPECT_TRUE(d.values().empty());

  // Distinct values throughout: given up, and built again on a shorter column.
  std::vector<double> spread(200000);
  for (std::size_t i = 0; i < spread.size(); ++i) spread[i] = static_cast<double>(i) * 1e-3;
  EXPECT_FALSE(d.build(spread, spread.size() / 2));
  spread.resize(1000);
  for (double& v : spread) v = std::floor(v);
  ASSERT_TRUE(d.build(spread, 500));
  expect_round_trip(d, spread);
}

}  // namespace
}  // namespace vardel
