// Box-Cox transformation of one variable at a node (see boxcox.hpp).
#include "split/boxcox.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <tuple>
#include <utility>
#include <vector>

#include "numerics/farray.hpp"
#include "numerics/parallel_for.hpp"
#include "split/distinct_values.hpp"
#include "split/guards.hpp"

namespace vardel {
namespace {

using Index = std::ptrdiff_t;

// Powers tried, in the order of the walk. The six-point grid is computed in
// single precision, so its inner points are the float values nearest -1.2,
// -0.4, 0.4 and 1.2, not the doubles.
struct PowerGrid {
  std::array<double, 11> p{};
  Index size = 0;
  double operator()(Index i) const { return p[static_cast<std::size_t>(i - 1)]; }
};

PowerGrid power_grid(int varsel) {
  PowerGrid g;
  if (varsel == 1) {
    g.p = {-2.0, -1.5, -1.0, -0.5, -0.25, 0.0, 0.25, 0.5, 1.0, 1.5, 2.0};
    g.size = 11;
  } else {
    for (int i = 1; i <= 6; ++i) {
      const float pf = static_cast<float>(i - 1) * 0.8f - 2.0f;
      g.p[static_cast<std::size_t>(i - 1)] = static_cast<double>(pf);
    }
    g.size = 6;
  }
  return g;
}

// Guards the sharing of a transform: the steps of one power or logarithm.
constexpr std::size_t kPowerSteps = 40;

// Guards the sharing of a copy from the distinct values: steps per value.
constexpr std::size_t kGatherSteps = 2;
// Guards the sharing of the powers tried at once: steps per value of a
// power's spread.
constexpr std::size_t kSpreadSteps = 4;

// A power tried: the values under it, their class means and spread.
struct Trial {
  std::vector<double> z;
  FArray<double> mean;
  double v = 0.0;
};

// Guards the search for repeated values: columns shorter than this are
// transformed value by value.
constexpr std::size_t kFewestForDistinct = 64;

// z = (x^p - 1) / p, or ln x for a power within kTiny of 0. z may be x. Each
// value is independent of the others, so blocks of them are shared out.
void power(std::span<const double> x, double p, std::span<double> z) {
  const bool log_power = !(p > kTiny || p < -kTiny);
  parallel_blocks(0, static_cast<Index>(x.size()) - 1, kPowerSteps, [&](Index lo, Index hi) {
    for (auto i = static_cast<std::size_t>(lo); i <= static_cast<std::size_t>(hi); ++i) {
      z[i] = log_power ? std::log(x[i]) : (std::pow(x[i], p) - 1.0) / p;
    }
  });
}

// The values of x under power p, into z. With `distinct` (the distinct
// values of x) each distinct value is transformed once, into `once`, and
// copied to its cases.
void transform(std::span<const double> x, double p, std::span<double> z,
               const DistinctValues* distinct, std::vector<double>& once) {
  if (distinct == nullptr) {
    power(x, p, z);
    return;
  }
  once.resize(distinct->values().size());
  power(distinct->values(), p, once);
  const std::span<const int> index = distinct->index();
  parallel_blocks(0, static_cast<Index>(x.size()) - 1, kGatherSteps, [&](Index lo, Index hi) {
    for (auto i = static_cast<std::size_t>(lo); i <= static_cast<std::size_t>(hi); ++i)
      z[i] = once[static_cast<std::size_t>(index[i])];
  });
}

// Class means of z over the classes with cases (others left at 0) and the
// within-class sum of squares divided by n.
double class_spread(std::span<const double> z, FView<const int> ydat, FView<const int> noc,
                    FArray<double>& mean) {
  mean.fill(0.0);
  const Index n = ydat.size();
  for (Index i = 1; i <= n; ++i) mean(ydat(i)) += z[static_cast<std::size_t>(i - 1)];
  for (Index k = 1; k <= noc.size(); ++k) {
    if (noc(k) != 0) mean(k) = mean(k) / noc(k);
  }
  double ss = 0.0;
  for (Index i = 1; i <= n; ++i) {
    const double d = z[static_cast<std::size_t>(i - 1)] - mean(ydat(i));
    ss += d * d;
  }
  return ss / static_cast<double>(n);
}

// class_spread of two sets of values at once, each summed exactly as alone.
std::pair<double, double> class_spreads(std::span<const double> za, std::span<const double> zb,
                                        FView<const int> ydat, FView<const int> noc,
                                        FArray<double>& mean_a, FArray<double>& mean_b) {
  mean_a.fill(0.0);
  mean_b.fill(0.0);
  const Index n = ydat.size();
  for (Index i = 1; i <= n; ++i) {
    const auto at = static_cast<std::size_t>(i - 1);
    mean_a(ydat(i)) += za[at];
    mean_b(ydat(i)) += zb[at];
  }
  for (Index k = 1; k <= noc.size(); ++k) {
    if (noc(k) != 0) {
      mean_a(k) = mean_a(k) / noc(k);
      mean_b(k) = mean_b(k) / noc(k);
    }
  }
  double ss_a = 0.0;
  double ss_b = 0.0;
  for (Index i = 1; i <= n; ++i) {
    const auto at = static_cast<std::size_t>(i - 1);
    const double da = za[at] - mean_a(ydat(i));
    const double db = zb[at] - mean_b(ydat(i));
    ss_a += da * da;
    ss_b += db * db;
  }
  return {ss_a / static_cast<double>(n), ss_b / static_cast<double>(n)};
}

void store_means(const FArray<double>& mean, FView<const int> noc, FView<double> xmean) {
  for (Index k = 1; k <= noc.size(); ++k) {
    if (noc(k) != 0) xmean(k) = mean(k);
  }
}

// Guards the minima: independent running minima over every fourth value, so
// that their comparisons overlap. A minimum does not depend on the order of
// the values (equal zeros of either sign give the same shift).
constexpr std::size_t kMinima = 4;

// The least value of x (kAbove: of the values above floor); found is false
// when there is none. NaN values are passed over.
template <bool kAbove>
double least_value(std::span<const double> x, double floor, bool& found) {
  // A running minimum starts as NaN: the first value taken replaces it.
  std::array<double, kMinima> low;
  low.fill(std::numeric_limits<double>::quiet_NaN());
  auto take = [floor](double v, double& to) {
    const bool counts = kAbove ? v > floor : v == v;
    if (counts && !(v >= to)) to = v;
  };
  std::size_t i = 0;
  for (; i + kMinima <= x.size(); i += kMinima) {
    for (std::size_t k = 0; k < kMinima; ++k) take(x[i + k], low[k]);
  }
  for (; i < x.size(); ++i) take(x[i], low[0]);
  double least = 0.0;
  found = false;
  for (const double v : low) {
    if (v == v && (!found || v < least)) {
      least = v;
      found = true;
    }
  }
  return least;
}

// Moves x onto the positive half-line and returns the amount subtracted.
double shift_positive(std::span<double> x) {
  // m: the least value, or the largest double when none is below it.
  constexpr double kLargest = std::numeric_limits<double>::max();
  bool found = false;
  const double least = least_value<false>(x, 0.0, found);
  const double m = found && least < kLargest ? least : kLargest;
  double shift = 0.0;
  if (m == 0.0) {
    shift = -1.0;
  } else if (m < 0.0) {
    // s: the least value above m, or m itself when all values are equal;
    // the least shifted value is then s - m.
    const double above = least_value<true>(x, m, found);
    const double s = found ? above : m;
    shift = 2.0 * m - s;
  }
  bool near_zero = false;
  for (double& v : x) {
    v = v - shift;
    if (v < kEps) near_zero = true;
  }
  if (near_zero) {
    shift = shift - 1.0;
    for (double& v : x) v = v + 1.0;
  }
  return shift;
}

}  // namespace

BoxCoxResult boxcox(std::span<double> x, std::span<const int> ydat, double& mse,
                    std::span<double> xmean, std::span<const int> noc, int varsel) {
  const FView<const int> y(ydat);
  const FView<const int> nc(noc);
  const FView<double> xm(xmean);

  // No within-class spread: power 1, no search.
  if (mse < kTiny) {
    for (double& v : x) v = v - 1.0;
    for (Index k = 1; k <= xm.size(); ++k) xm(k) = xm(k) - 1.0;
    return {1.0, 0.0};
  }

  const PowerGrid grid = power_grid(varsel);
  const double shift = shift_positive(x);
  const double dn = static_cast<double>(x.size());

  // Repeated values are transformed once each, when they are many.
  DistinctValues distinct;
  const DistinctValues* few =
      x.size() >= kFewestForDistinct && distinct.build(x, x.size() / 2) ? &distinct : nullptr;
  // The logarithms are taken apart (shared out) and summed in case order.
  std::vector<double> log_x(x.size());
  std::vector<double> once;
  transform(x, 0.0, log_x, few, once);
  double sum_log = 0.0;
  for (const double v : log_x) sum_log += v;

  // last, last_mean, last_v: the values, class means and spread under the
  // power before the one being taken, kept so that going back one step costs
  // nothing.
  std::vector<double> last = std::move(log_x);
  FArray<double> last_mean(nc.size(), 0.0);
  double last_v = 0.0;
  double best = std::numeric_limits<double>::max();
  // Takes power ig, tried in t; true when the walk ends there, with x, mse
  // and xmean set for the power before it.
  auto ends_at = [&](Index ig, Trial& t) {
    const double p = grid(ig);
    const double c = t.v < kTiny ? kLowGuard : std::log(t.v) - 2.0 / dn * p * sum_log;
    // The first power is always taken, even when c is +inf from an overflow.
    if (ig > 1 && best <= c) {
      // The walk ends at the first power that does not improve: go back one.
      std::copy(last.begin(), last.end(), x.begin());
      mse = last_v;
      store_means(last_mean, nc, xm);
      return true;
    }
    best = c;
    t.z.swap(last);
    std::swap(t.mean, last_mean);
    last_v = t.v;
    return false;
  };
  // The walk goes in rounds of powers tried at once, each power's spread a
  // sequential sum. With few distinct values a power costs little to
  // transform and the sums take the time: a hand tries two powers side by
  // side. A free thread takes the next power or two. Powers past the end of
  // the walk are tried in vain.
  const Index per_hand = few != nullptr ? 2 : 1;
  std::vector<Trial> trials(static_cast<std::size_t>(2 * per_hand));
  for (Trial& t : trials) t.mean.assign(nc.size(), 0.0);
  std::vector<double> once2;
  for (Index ig = 1; ig <= grid.size;) {
    const Index hands = would_share(2, x.size() * kSpreadSteps) ? 2 : 1;
    const Index count = std::min(hands * per_hand, grid.size - ig + 1);
    parallel_for(0, (count + per_hand - 1) / per_hand - 1, x.size() * kSpreadSteps, [&](Index h) {
      const Index first = h * per_hand;
      std::vector<double>& own_once = h == 0 ? once : once2;
      Trial& a = trials[static_cast<std::size_t>(first)];
      a.z.resize(x.size());
      transform(x, grid(ig + first), a.z, few, own_once);
      if (first + 1 == count || per_hand == 1) {
        a.v = class_spread(a.z, y, nc, a.mean);
        return;
      }
      Trial& b = trials[static_cast<std::size_t>(first + 1)];
      b.z.resize(x.size());
      transform(x, grid(ig + first + 1), b.z, few, own_once);
      std::tie(a.v, b.v) = class_spreads(a.z, b.z, y, nc, a.mean, b.mean);
    });
    for (Index t = 0; t < count; ++t, ++ig) {
      if (ends_at(ig, trials[static_cast<std::size_t>(t)])) return {grid(ig - 1), shift};
    }
  }

  // Every power improved: the last one stands.
  std::copy(last.begin(), last.end(), x.begin());
  mse = last_v;
  store_means(last_mean, nc, xm);
  return {grid(grid.size), shift};
}

}  // namespace vardel
