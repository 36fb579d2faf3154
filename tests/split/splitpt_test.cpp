#include "split/splitpt.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "split/guards.hpp"

namespace vardel {
namespace {

constexpr double L = kLowGuard, H = kHighGuard;
using Dv = std::vector<double>;
using Iv = std::vector<int>;

struct Case {
  Dv intercept, slope, x;
  Iv noc, ydat;
  Dv cutpt;
  Iv py;
};

void check(const Case& c) {
  const auto k = static_cast<std::ptrdiff_t>(c.slope.size());
  FArray<double> coef(k, 2, 0.0);
  for (std::ptrdiff_t i = 1; i <= k; ++i)
    coef(i, 1) = c.intercept[i - 1], coef(i, 2) = c.slope[i - 1];
  Dv cutpt(k - 1);
  Iv py(c.x.size());
  splitpt(coef, c.x, c.noc, c.ydat, cutpt, py);
  EXPECT_EQ(cutpt, c.cutpt) << c.x[0];
  EXPECT_EQ(py, c.py) << c.x[0];
}

TEST(Splitpt, EnvelopeCrossings) {
  const Case cases[] = {
      // Lines -x and x cross at 0; the case at 0 goes below.
      {{0, 0}, {-1, 1}, {-2, -1, 0, 1, 2}, {3, 2}, {1, 1, 1, 2, 2}, {0}, {1, 1, 1, 2, 2}},
      // The middle line (-5) stays under the other two: one point, one guard.
      {{0, -5, 0}, {-1, 0, 1}, {-3, 0, 2}, {1, 1, 1}, {1, 2, 3}, {L, 0}, {2, 2, 3}},
      // A class without cases has no line, though its coefficients dominate.
      {{0, 9, 0}, {-1, 0, 1}, {-3, 2}, {1, 0, 1}, {1, 3}, {L, 0}, {2, 3}},
      // Parallel lines never cross: all cases land in subnode 2, so the
      // point is the midpoint of the class means 2 and 6.
      {{0, 1}, {1, 1}, {1, 2, 3, 5, 7}, {3, 2}, {1, 1, 1, 2, 2}, {4}, {1, 1, 1, 2, 2}},
      // Identical lines 1 and 2 block each other's crossings with line 3, so
      // the class means -1, 0.5 and 10.5 give the points.
      {{0, 0, 0},
       {1, 1, -1},
       {-1, 2, 4, -6, 10, 11},
       {2, 2, 2},
       {1, 1, 2, 2, 3, 3},
       {-0.25, 5.5},
       {1, 2, 2, 1, 3, 3}},
  };
  for (const Case& c : cases) check(c);
}

// Lines k x - k^2 / 2 touch a parabola: the envelope passes through every
// class, with points 1.5, 2.5, 3.5, 4.5. A run of empty subnodes between
// occupied ones becomes one point, the midpoint of the points around it.
TEST(Splitpt, EmptySubnodesAreMerged) {
  const Dv icpt = {-0.5, -2, -4.5, -8, -12.5}, slope = {1, 2, 3, 4, 5};
  const Iv noc = {1, 1, 1, 1, 1}, ydat = {1, 2, 3, 4, 5};
  const Case cases[] = {
      // Subnodes 2, 3 and 5 empty; 1 and 3 empty; 2 and 4 empty; 2 empty.
      {icpt, slope, {1, 1.2, 4, 4.1, 3.9}, noc, ydat, {2.5, H, H, H}, {1, 1, 2, 2, 2}},
      {icpt, slope, {2, 2.1, 4, 4.2, 5}, noc, ydat, {3.0, 4.5, H, H}, {1, 1, 2, 2, 3}},
      {icpt, slope, {1, 3, 5, 0.5, 3.1}, noc, ydat, {2.0, 4.0, H, H}, {1, 2, 3, 1, 2}},
      {icpt, slope, {1, 3, 4, 5, 5.5}, noc, ydat, {2.0, 3.5, 4.5, H}, {1, 2, 3, 4, 4}},
  };
  for (const Case& c : cases) check(c);
}

// A NaN case is at or below no point; points out of order (as NaN points
// make them) keep the first point at or above the case, not a count.
TEST(Getpy, NaNCasesAndDisorderedPoints) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Iv py(3);
  getpy(Dv{1, 3}, Dv{nan, 2, 3}, py);
  EXPECT_EQ(py, (Iv{3, 2, 2}));
  getpy(Dv{3, 1}, Dv{2, 0, 4}, py);
  EXPECT_EQ(py, (Iv{1, 1, 3}));
  getpy(Dv{nan, 1}, Dv{0, 2, nan}, py);
  EXPECT_EQ(py, (Iv{2, 3, 3}));
}

// Enough cases to be shared among threads: every block assigns as one walk.
TEST(Getpy, LongColumnMatchesWalk) {
  const Dv cut = {-0.5, 0.25, 0.25, 2};
  Dv x(200000);
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = static_cast<double>(i % 97) / 24.0 - 1.0;
  Iv py(x.size());
  getpy(cut, x, py);
  for (std::size_t i = 0; i < x.size(); ++i) {
    int walk = 5;
    for (int m = 0; m < 4; ++m) {
      if (x[i] <= cut[static_cast<std::size_t>(m)]) {
        walk = m + 1;
        break;
      }
    }
    ASSERT_EQ(py[i], walk) << i;
  }
}

TEST(Getpy, GuardsTakeNoCases) {
  Iv py(4);
  getpy(Dv{L, 2, H}, Dv{-1e300, 2, 2.5, 1e300}, py);
  EXPECT_EQ(py, (Iv{2, 2, 3, 3}));
}

}  // namespace
}  // namespace vardel
