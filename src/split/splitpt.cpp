// Split points on the envelope of the discriminant lines (see splitpt.hpp).
#include "split/splitpt.hpp"

#include <cmath>
#include <cstddef>

#include "numerics/parallel_for.hpp"
#include "numerics/sort.hpp"
#include "split/guards.hpp"

namespace vardel {
namespace {

using Index = std::ptrdiff_t;

// Guards the sharing of the assignment: steps per case.
constexpr std::size_t kAssignSteps = 4;

// Whether the points ascend with no NaN among them: then the first point at
// or above x is the one after those below it.
bool ascending(FView<const double> cut) {
  for (Index m = 1; m <= cut.size(); ++m) {
    if (cut(m) != cut(m)) return false;
    if (m > 1 && cut(m) < cut(m - 1)) return false;
  }
  return true;
}

// Each case goes to the first subnode m whose point is at or above x, else to
// the last subnode K = cutpt.size() + 1. A case equal to a point goes below it.
void assign(std::span<const double> cutpt, std::span<const double> x, std::span<int> py) {
  const FView<const double> cut(cutpt);
  const Index npts = cut.size();
  const int last = static_cast<int>(npts + 1);
  const bool counted = ascending(cut);
  parallel_blocks(0, static_cast<Index>(x.size()) - 1, kAssignSteps, [&](Index lo, Index hi) {
    const auto first = static_cast<std::size_t>(lo);
    const auto end = static_cast<std::size_t>(hi) + 1;
    if (counted) {
      // The subnode is one past the points below x (a NaN x counts as above
      // every point, and goes to the last subnode as in the walk).
      for (std::size_t i = first; i < end; ++i) {
        int sub = 1;
        for (Index m = 1; m <= npts; ++m) sub += !(x[i] <= cut(m));
        py[i] = sub;
      }
      return;
    }
    for (std::size_t i = first; i < end; ++i) {
      int sub = last;
      for (Index m = 1; m <= npts; ++m) {
        if (x[i] <= cut(m)) {
          sub = static_cast<int>(m);
          break;
        }
      }
      py[i] = sub;
    }
  });
}

// Number of cases in each subnode 1..K.
void count_subnodes(std::span<const int> py, FArray<Index>& size) {
  size.fill(0);
  for (const int p : py) size(p) += 1;
}

// Points below a run of empty subnodes at the low end go to the low guard,
// points above a run at the high end to the high guard. No case moves.
void trim_ends(const FArray<Index>& size, FView<double> cut) {
  const Index nclass = size.size();
  for (Index k = 1; k <= nclass - 1 && size(k) == 0; ++k) cut(k) = kLowGuard;
  for (Index k = nclass; k >= 2 && size(k) == 0; --k) cut(k - 1) = kHighGuard;
}

bool one_subnode_holds_all(const FArray<Index>& size, Index n) {
  for (const Index s : size) {
    if (s == n) return true;
  }
  return false;
}

// Fallback: points at the midpoints of consecutive class means of x, taken in
// ascending order over the classes with cases.
void points_from_means(std::span<const double> x, FView<const int> noc, FView<const int> ydat,
                       FView<double> cut) {
  const Index nclass = noc.size();
  FArray<double> mean(nclass, 0.0);
  for (Index i = 1; i <= ydat.size(); ++i) mean(ydat(i)) += x[static_cast<std::size_t>(i - 1)];
  for (Index k = 1; k <= nclass; ++k) {
    mean(k) = noc(k) != 0 ? mean(k) / noc(k) : kLowGuard;
  }
  sort(mean.span());
  for (Index k = 1; k <= cut.size(); ++k) cut(k) = kLowGuard;
  for (Index i = 1; i <= nclass - 1; ++i) {
    if (is_real_point(mean(i)) && is_real_point(mean(i + 1))) {
      cut(i) = 0.5 * (mean(i) + mean(i + 1));
    }
  }
}

// Removes the real points of empty subnodes inside the range of the data: a
// run of empty subnodes between two occupied ones is replaced by one point,
// the midpoint of the points at the two ends of the run.
void compact(const FArray<Index>& size, FView<double> cut, std::span<const double> x,
             std::span<int> py) {
  const Index npts = cut.size();
  Index empty_real = 0, low = 0, high = 0;
  for (Index k = 1; k <= npts; ++k) {
    if (cut(k) == kLowGuard) {
      ++low;
    } else if (cut(k) == kHighGuard) {
      ++high;
    } else if (is_real_point(cut(k)) && size(k) == 0) {
      ++empty_real;
    }
  }
  if (empty_real == 0) return;

  const Index want = npts - empty_real - low - high;
  // Point k, or the high guard past the last point (only reached on
  // inconsistent input, such as infinite points).
  auto point = [&](Index k) { return k <= npts ? cut(k) : kHighGuard; };
  auto s = [&](Index k) { return k <= size.size() ? size(k) : Index{0}; };

  FArray<double> kept(npts, kHighGuard);
  Index nkept = 0;
  Index k = 1;
  double a = point(1);
  while (k < npts && s(k) == 0) {
    ++k;
    a = point(k);
  }
  while (nkept < want && k + 1 <= size.size()) {
    if (s(k + 1) == 0) {
      if (s(k + 2) == 0) {
        ++k;  // a run of empty subnodes goes on: keep a
      } else {
        const double b = point(k + 1);
        kept(++nkept) = 0.5 * (a + b);
        ++k;
        a = b;
      }
    } else if (s(k) == 0) {
      ++k;
      a = point(k);
    } else {
      kept(++nkept) = a;
      ++k;
      a = point(k);
    }
  }

  for (Index m = 1; m <= npts; ++m) cut(m) = m <= nkept ? kept(m) : kHighGuard;
  assign(cut.span(), x, py);
}

}  // namespace

void splitpt(const FArray<double>& coef, std::span<const double> x, std::span<const int> noc,
             std::span<const int> ydat, std::span<double> cutpt, std::span<int> py) {
  const FView<const int> nc(noc);
  const FView<double> cut(cutpt);
  const Index nclass = nc.size();
  const Index npts = cut.size();
  const Index n = static_cast<Index>(x.size());
  auto intercept = [&](Index k) { return coef(k, 1); };
  auto slope = [&](Index k) { return coef(k, 2); };

  for (Index m = 1; m <= npts; ++m) cut(m) = kLowGuard;

  // Crossings of two lines that no third line reaches: the envelope changes
  // class there. Points past K - 1 are dropped.
  Index found = 0;
  for (Index i = 1; i <= nclass - 1; ++i) {
    if (nc(i) == 0) continue;
    for (Index j = i + 1; j <= nclass; ++j) {
      if (nc(j) == 0) continue;
      const double d = slope(i) - slope(j);
      if (!(std::abs(d) > kEps)) continue;
      const double t = (intercept(j) - intercept(i)) / d;
      const double v = slope(i) * t + intercept(i);
      bool on_envelope = true;
      for (Index k = 1; k <= nclass && on_envelope; ++k) {
        if (k == i || k == j || nc(k) == 0) continue;
        if (slope(k) * t + intercept(k) >= v) on_envelope = false;
      }
      if (!on_envelope) continue;
      ++found;
      if (found <= npts) cut(found) = t;
    }
  }
  sort(cutpt);

  assign(cut.span(), x, py);
  FArray<Index> size(nclass, 0);
  count_subnodes(py, size);
  trim_ends(size, cut);

  if (one_subnode_holds_all(size, n)) {
    points_from_means(x, nc, FView<const int>(ydat), cut);
    assign(cut.span(), x, py);
    count_subnodes(py, size);
    trim_ends(size, cut);
  }

  compact(size, cut, x, py);
}

void getpy(std::span<const double> cutpt, std::span<const double> x, std::span<int> py) {
  // Trimming the points of empty end subnodes moves no case, so with the
  // points read-only the assignment is all there is to do.
  assign(cutpt, x, py);
}

}  // namespace vardel
