// Box-Cox transformation of one variable at a node (see boxcox.hpp).
#include "split/boxcox.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
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

  // z: the values under the power being tried; last, last_mean, last_v: the
  // values, class means and spread under the power before it, kept so that
  // going back one step costs nothing.
  std::vector<double> z(x.size());
  // Repeated values are transformed once each, when they are many.
  DistinctValues distinct;
  const DistinctValues* few =
      x.size() >= kFewestForDistinct && distinct.build(x, x.size() / 2) ? &distinct : nullptr;
  std::vector<double> once;
  // The logarithms are taken apart (shared out) and summed in case order.
  transform(x, 0.0, z, few, once);
  double sum_log = 0.0;
  for (const double v : z) sum_log += v;

  std::vector<double> last(x.size());
  FArray<double> mean(nc.size(), 0.0);
  FArray<double> last_mean(nc.size(), 0.0);
  double last_v = 0.0;
  double best = std::numeric_limits<double>::max();
  // Takes the spread v of power ig (values z, class means m); true when the
  // walk ends there, with x, mse and xmean set for the power before it.
  auto ends_at = [&](Index ig, double v, std::vector<double>& zp, FArray<double>& m) {
    const double p = grid(ig);
    const double c = v < kTiny ? kLowGuard : std::log(v) - 2.0 / dn * p * sum_log;
    // The first power is always taken, even when c is +inf from an overflow.
    if (ig > 1 && best <= c) {
      // The walk ends at the first power that does not improve: go back one.
      std::copy(last.begin(), last.end(), x.begin());
      mse = last_v;
      store_means(last_mean, nc, xm);
      return true;
    }
    best = c;
    zp.swap(last);
    std::swap(m, last_mean);
    last_v = v;
    return false;
  };
  // With few distinct values a power costs little to transform, and the
  // spreads, sequential sums, take the time: two powers are tried side by
  // side, the second perhaps in vain.
  std::vector<double> z2(few != nullptr ? x.size() : 0);
  FArray<double> mean2(nc.size(), 0.0);
  for (Index ig = 1; ig <= grid.size; ++ig) {
    if (few != nullptr && ig < grid.size) {
      transform(x, grid(ig), z, few, once);
      transform(x, grid(ig + 1), z2, few, once);
      const auto [v, v2] = class_spreads(z, z2, y, nc, mean, mean2);
      if (ends_at(ig, v, z, mean)) return {grid(ig - 1), shift};
      ++ig;
      if (ends_at(ig, v2, z2, mean2)) return {grid(ig - 1), shift};
      continue;
    }
    transform(x, grid(ig), z, few, once);
    const double v = class_spread(z, y, nc, mean);
    if (ends_at(ig, v, z, mean)) return {grid(ig - 1), shift};
  }

  // Every power improved: the last one stands.
  std::copy(last.begin(), last.end(), x.begin());
  mse = last_v;
  store_means(last_mean, nc, xm);
  return {grid(grid.size), shift};
}

}  // namespace vardel
