// What the tests of association hand back, and how one tested variable beats
// another.
//
// Pick is one chosen variable: its column var among the P predictors (0 when
// no variable could be tested), its p-value p and its statistic stat (the F
// ratio of a numerical test, the chi-square X of a categorical one). TwoBest
// holds the first two ranks of select5 or chi_sq5.
//
// displaces(p, stat, best) is the comparison of the tests that keep a p per
// variable: the smaller p wins, but once both p-values have underflowed below
// kTiny they no longer say anything and the larger statistic wins. Ties keep
// best, so the first variable in column order stays.
//
// rank_first_two(p, stat, vtype, kind) ranks all P columns by p with indexx
// (columns not of the given kind carry p = 2.0 and so come last). The first
// rank is the main variable, the second the alternate. If both of their p have
// underflowed, the columns are ranked again by stat and the last two ranks are
// taken instead. An alternate that is not of the kind (there is no second
// variable of that kind) becomes the main variable, keeping the p of the second
// rank, 2.0, so that it never beats a real p-value.
#pragma once

#include <limits>

#include <span>
#include "split/guards.hpp"

namespace vardel {

// F of a variable whose within-class mean square vanishes while its between
// mean square does not: the classes are separated perfectly.
inline constexpr double kHugeF = std::numeric_limits<double>::max();
// Starting p of the tests that keep a p per variable; above any real p-value.
inline constexpr double kUntestedP = 2.0;

struct Pick {
  int var = 0;
  double p = 1.0;
  double stat = 0.0;
};

struct TwoBest {
  Pick first, second;
};

inline bool displaces(double p, double stat, const Pick& best) {
  if (best.p >= kTiny || p >= kTiny) return p < best.p;
  return stat > best.stat;
}

TwoBest rank_first_two(std::span<const double> p, std::span<const double> stat,
                       std::span<const char> vtype, char kind);

}  // namespace vardel
