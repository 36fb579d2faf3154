// meanss and meanss1: class means, grand mean and the three mean squares of
// each predictor, over all cases or over the cases where it is present.
//
// Each column's sums are sequential chains in case order; a chain's speed is
// the latency of its adds. A few neighbouring columns therefore go through
// one loop over the cases together, each with its own accumulators, so that
// their chains overlap; a group of columns is one shared task. How columns are
// grouped never changes a result.
#include "split/class_moments.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "numerics/parallel_for.hpp"

namespace vardel {
namespace {

// Guards the group width: columns that share one loop over the cases. Eight
// still keeps every accumulator of the second pass in a register (the total
// mean square, which the tests skip, would take eight more).
constexpr int kGroup = 8;
// Guards the task's fixed arrays: nodes with more classes than this keep
// their class sums on the heap.
constexpr int kFixedClasses = 8;

// Gives mom the shape K by P unless it has it already.
void shape(Moments& mom, int nclass, int nvar) {
  if (mom.xmean.extent1() == nclass && mom.xmean.extent2() == nvar && mom.gmean.size() == nvar) {
    return;
  }
  mom.xmean.assign(nclass, nvar, 0.0);
  mom.gmean.assign(nvar, 0.0);
  mom.mst.assign(nvar, 0.0);
  mom.mse.assign(nvar, 0.0);
  mom.tss.assign(nvar, 0.0);
  mom.n_used.assign(nvar, 0);
  mom.m_used.assign(nvar, 0);
  mom.noc_used.assign(nclass, nvar, 0);
}

// A sum of squares over its degrees of freedom; 0 when there are none.
double mean_square(double sum, int df) {
  return df > 0 ? sum / static_cast<double>(df) : 0.0;
}

// v if present, else +0.0: a mask on the bits rather than a choice, which
// compilers may turn into a branch that 5% of missing cells mispredict often.
inline double masked_value(double v, bool present) {
  const std::uint64_t keep = std::uint64_t{0} - static_cast<std::uint64_t>(present);
  return std::bit_cast<double>(std::bit_cast<std::uint64_t>(v) & keep);
}

// Per-class values of a group's G columns: row(k)[c] for class k (1..K) and
// column c (0..G-1) of the group. A class's G values lie side by side, so one
// address serves the whole group. Fixed storage when K is small.
template <class T, int G>
class ClassRows {
 public:
  explicit ClassRows(int nclass) {
    const std::size_t size = static_cast<std::size_t>(nclass) * G;
    first_ = fixed_.data();
    if (nclass > kFixedClasses) {
      heap_.assign(size, T{});
      first_ = heap_.data();
    } else {
      std::fill_n(first_, size, T{});
    }
    nclass_ = nclass;
  }
  ClassRows(const ClassRows&) = delete;
  ClassRows& operator=(const ClassRows&) = delete;

  T* row(int k) {
#ifdef VARDEL_BOUNDS_CHECK
    if (k < 1 || k > nclass_) {
      std::fprintf(stderr, "ClassRows: class %d outside 1..%d\n", k, nclass_);
      std::abort();
    }
#endif
    return first_ + static_cast<std::ptrdiff_t>(k - 1) * G;
  }

 private:
  std::array<T, kFixedClasses * G> fixed_;
  std::vector<T> heap_;
  T* first_;
  int nclass_;
};

// Which cells of a column the moments are taken over.
enum class Cells {
  all,     // every case's
  masked,  // the present ones: misind(i, j) == 'n'
  // The present ones, in a table whose missing cells hold +0.0: summed like
  // all cells, with the counts of the present ones. The missing cells then
  // take their class's mean, so that they add +0.0 to the squares as well.
  zeroed,
};

// Moments of the G columns j0 .. j0 + G - 1. Masked and zeroed: the class
// counts are those of the present cases; all: noc_all and m_all are the
// counts of all cases. Zeroed also takes noc_all and `zeroed`, and leaves
// each missing cell holding its class's mean. Without kTotal, tss is left as
// it is (zeroed never takes it).
template <Cells kCells, bool kTotal, int G>
void group_moments(FMatrixView<const double> xdat, const FMatrixView<const char>* misind,
                   std::span<const int> ydat, std::span<const int> noc_all, int m_all, int j0,
                   Moments& mom, const ZeroedCells* zeroed = nullptr) {
  constexpr bool kMasked = kCells == Cells::masked;
  static_assert(kCells != Cells::zeroed || !kTotal);
  const int n_all = static_cast<int>(xdat.extent1());
  const int nclass = static_cast<int>(mom.xmean.extent1());
  FView<const int> y(ydat);
  std::array<FView<const double>, G> x;
  std::array<FView<const char>, G> miss;
  for (int c = 0; c < G; ++c) {
    x[c] = xdat.column(j0 + c);
    if constexpr (kMasked) miss[c] = misind->column(j0 + c);
  }
  // Class sums and counts build up in the task's own arrays, copied to mom at
  // the end: columns of neighbouring tasks share cache lines in mom.
  ClassRows<double, G> xmean(nclass);
  ClassRows<int, G> noc(nclass);

  // Pass 1: class sums (kept in xmean until divided), totals and counts.
  std::array<double, G> total{};
  std::array<int, G> n{};
  std::array<int, G> m{};
  if constexpr (kMasked) {
    for (int i = 1; i <= n_all; ++i) {
      double* sum = xmean.row(y(i));
      int* count = noc.row(y(i));
      // A missing cell adds +0.0, which leaves a sum as it is (a sum that
      // starts at +0.0 is never -0.0): no branch to mispredict.
      for (int c = 0; c < G; ++c) {
        const bool present = miss[c](i) != 'y';
        const double v = masked_value(x[c](i), present);
        sum[c] += v;
        total[c] += v;
        count[c] += present;
        n[c] += present;
      }
    }
    for (int c = 0; c < G; ++c) {
      for (int k = 1; k <= nclass; ++k) {
        if (noc.row(k)[c] > 0) ++m[c];
      }
    }
  } else {
    for (int c = 0; c < G; ++c) {
      for (int k = 1; k <= nclass; ++k) noc.row(k)[c] = noc_all[static_cast<std::size_t>(k - 1)];
      n[c] = n_all;
      m[c] = m_all;
      if constexpr (kCells == Cells::zeroed) {
        const std::vector<int>& rows = zeroed->missing[static_cast<std::size_t>(j0 + c - 1)];
        for (int r : rows) --noc.row(y(r))[c];
        n[c] -= static_cast<int>(rows.size());
        m[c] = 0;
        for (int k = 1; k <= nclass; ++k) m[c] += noc.row(k)[c] > 0;
      }
    }
    for (int i = 1; i <= n_all; ++i) {
      // The group's values are read before any class sum is written, so that
      // the sums of one class can be updated side by side.
      std::array<double, G> v;
      for (int c = 0; c < G; ++c) v[c] = x[c](i);
      double* sum = xmean.row(y(i));
      for (int c = 0; c < G; ++c) {
        sum[c] += v[c];
        total[c] += v[c];
      }
    }
  }

  std::array<double, G> g;
  std::array<double, G> between{};
  for (int c = 0; c < G; ++c) {
    for (int k = 1; k <= nclass; ++k) {
      if (noc.row(k)[c] != 0)
        xmean.row(k)[c] = xmean.row(k)[c] / static_cast<double>(noc.row(k)[c]);
    }
    g[c] = n[c] > 0 ? total[c] / static_cast<double>(n[c]) : 0.0;
    for (int k = 1; k <= nclass; ++k) {
      if (noc.row(k)[c] == 0) continue;
      const double d = xmean.row(k)[c] - g[c];
      between[c] += static_cast<double>(noc.row(k)[c]) * (d * d);
    }
  }

  if constexpr (kCells == Cells::zeroed) {
    // A class mean that is not finite would not give +0.0 against itself.
    bool finite = true;
    for (int c = 0; c < G; ++c) {
      finite = finite && std::isfinite(g[c]);
      for (int k = 1; k <= nclass; ++k) finite = finite && std::isfinite(xmean.row(k)[c]);
    }
    if (!finite) {
      group_moments<Cells::masked, false, G>(xdat, misind, ydat, {}, 0, j0, mom);
      return;
    }
    for (int c = 0; c < G; ++c) {
      const std::span<double> column = zeroed->x.column(j0 + c);
      for (int r : zeroed->missing[static_cast<std::size_t>(j0 + c - 1)])
        column[static_cast<std::size_t>(r - 1)] = xmean.row(y(r))[c];
    }
  }

  // Pass 2: squares about the class means and about the grand mean.
  std::array<double, G> within{};
  std::array<double, G> spread{};
  for (int i = 1; i <= n_all; ++i) {
    const double* mean = xmean.row(y(i));
    for (int c = 0; c < G; ++c) {
      const double v = x[c](i);
      const double dw = v - mean[c];
      [[maybe_unused]] const double dt = v - g[c];
      if constexpr (kMasked) {
        // As in pass 1, a missing cell adds +0.0.
        const bool present = miss[c](i) != 'y';
        within[c] += masked_value(dw * dw, present);
        if constexpr (kTotal) spread[c] += masked_value(dt * dt, present);
      } else {
        within[c] += dw * dw;
        if constexpr (kTotal) spread[c] += dt * dt;
      }
    }
  }

  for (int c = 0; c < G; ++c) {
    const int j = j0 + c;
    for (int k = 1; k <= nclass; ++k) {
      mom.xmean(k, j) = xmean.row(k)[c];
      mom.noc_used(k, j) = noc.row(k)[c];
    }
    mom.gmean(j) = g[c];
    mom.mst(j) = mean_square(between[c], m[c] - 1);
    mom.mse(j) = mean_square(within[c], n[c] - m[c]);
    if constexpr (kTotal) mom.tss(j) = mean_square(spread[c], n[c] - 1);
    mom.n_used(j) = n[c];
    mom.m_used(j) = m[c];
  }
}

// group_moments for the `width` (1..G) columns from j0.
template <Cells kCells, bool kTotal, int G = kGroup>
void columns_moments(int width, FMatrixView<const double> xdat,
                     const FMatrixView<const char>* misind, std::span<const int> ydat,
                     std::span<const int> noc_all, int m_all, int j0, Moments& mom,
                     const ZeroedCells* zeroed) {
  if constexpr (G > 1) {
    if (width < G) {
      columns_moments<kCells, kTotal, G - 1>(width, xdat, misind, ydat, noc_all, m_all, j0, mom,
                                             zeroed);
      return;
    }
  }
  group_moments<kCells, kTotal, G>(xdat, misind, ydat, noc_all, m_all, j0, mom, zeroed);
}

// The moments of every column, in groups of at most kGroup neighbouring
// columns, one task each. With several threads the group count is a multiple
// of theirs and the widths differ by at most one, so that the threads finish
// together.
template <Cells kCells>
void all_moments(FMatrixView<const double> xdat, const FMatrixView<const char>* misind,
                 std::span<const int> ydat, std::span<const int> noc_all, int m_all, Moments& mom,
                 Squares squares, const ZeroedCells* zeroed = nullptr) {
  const int nvar = static_cast<int>(xdat.extent2());
  if (nvar < 1) return;
  int groups = (nvar + kGroup - 1) / kGroup;
  const int threads = parallel_threads();
  if (groups > 1 && threads > 1)
    groups = std::min(nvar, (groups + threads - 1) / threads * threads);
  const int base = nvar / groups;
  const int wider = nvar % groups;  // the first groups take one column more
  auto first_column = [&](int group) {
    return 1 + (group - 1) * base + std::min(group - 1, wider);
  };
  const std::size_t steps = static_cast<std::size_t>(xdat.extent1()) * kGroup;
  parallel_for(1, groups, steps, [&](std::ptrdiff_t group) {
    const int j0 = first_column(static_cast<int>(group));
    const int width = first_column(static_cast<int>(group) + 1) - j0;
    if constexpr (kCells == Cells::zeroed)
      columns_moments<kCells, false>(width, xdat, misind, ydat, noc_all, m_all, j0, mom, zeroed);
    else if (squares == Squares::with_total)
      columns_moments<kCells, true>(width, xdat, misind, ydat, noc_all, m_all, j0, mom, zeroed);
    else
      columns_moments<kCells, false>(width, xdat, misind, ydat, noc_all, m_all, j0, mom, zeroed);
  });
}

}  // namespace

void meanss(FMatrixView<const double> xdat, std::span<const int> ydat, std::span<const int> noc,
            int m, Moments& mom, Squares squares) {
  shape(mom, static_cast<int>(noc.size()), static_cast<int>(xdat.extent2()));
  all_moments<Cells::all>(xdat, nullptr, ydat, noc, m, mom, squares);
}

void meanss_column(FMatrixView<const double> xdat, std::span<const int> ydat,
                   std::span<const int> noc, int m, int j, Moments& mom) {
  shape(mom, static_cast<int>(noc.size()), static_cast<int>(xdat.extent2()));
  group_moments<Cells::all, true, 1>(xdat, nullptr, ydat, noc, m, j, mom);
}

void meanss1(FMatrixView<const double> xdat, FMatrixView<const char> misind,
             std::span<const int> ydat, int nclass, Moments& mom, Squares squares) {
  shape(mom, nclass, static_cast<int>(xdat.extent2()));
  all_moments<Cells::masked>(xdat, &misind, ydat, {}, 0, mom, squares);
}

void meanss1_column(FMatrixView<const double> xdat, FMatrixView<const char> misind,
                    std::span<const int> ydat, int nclass, int j, Moments& mom) {
  shape(mom, nclass, static_cast<int>(xdat.extent2()));
  group_moments<Cells::masked, true, 1>(xdat, &misind, ydat, {}, 0, j, mom);
}

void meanss1_zeroed(const ZeroedCells& cells, FMatrixView<const char> misind,
                    std::span<const int> ydat, std::span<const int> noc, Moments& mom) {
  const FMatrixView<const double> xdat = cells.x;
  shape(mom, static_cast<int>(noc.size()), static_cast<int>(xdat.extent2()));
  all_moments<Cells::zeroed>(xdat, &misind, ydat, noc, 0, mom, Squares::tests_only, &cells);
}

}  // namespace vardel
