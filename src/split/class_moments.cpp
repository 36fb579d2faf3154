// meanss and meanss1: class means, grand mean and the three mean squares of
// each predictor, over all cases or over the cases where it is present.
#include "split/class_moments.hpp"

#include "numerics/parallel_for.hpp"

namespace vardel {
namespace {

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

// Moments of column j. Masked: only the cases with misind(i, j) == 'n' count,
// and the class counts are those of these cases; otherwise noc_all and m_all
// are the counts of all cases.
template <bool kMasked>
void column_moments(FMatrixView<const double> xdat, const FMatrixView<const char>* misind,
                    std::span<const int> ydat, std::span<const int> noc_all, int m_all, int j,
                    Moments& mom) {
  const int n_all = static_cast<int>(xdat.extent1());
  const int nclass = static_cast<int>(mom.xmean.extent1());
  FView<const double> x(xdat.column(j));
  FView<const int> y(ydat);
  // Class sums and counts build up in the task's own arrays, copied to mom at
  // the end: columns of neighbouring tasks share cache lines in mom.
  FArray<double> xmean(nclass, 0.0);
  FArray<int> noc(nclass, 0);

  // Pass 1: class sums (kept in xmean until divided), total and counts.
  for (int k = 1; k <= nclass; ++k) {
    xmean(k) = 0.0;
    noc(k) = kMasked ? 0 : noc_all[static_cast<std::size_t>(k - 1)];
  }
  double total = 0.0;
  int n = n_all;
  int m = m_all;
  if constexpr (kMasked) {
    FView<const char> miss(misind->column(j));
    n = 0;
    for (int i = 1; i <= n_all; ++i) {
      if (miss(i) == 'y') continue;
      xmean(y(i)) += x(i);
      total += x(i);
      ++noc(y(i));
      ++n;
    }
    m = 0;
    for (int k = 1; k <= nclass; ++k) {
      if (noc(k) > 0) ++m;
    }
  } else {
    for (int i = 1; i <= n_all; ++i) {
      xmean(y(i)) += x(i);
      total += x(i);
    }
  }
  for (int k = 1; k <= nclass; ++k) {
    if (noc(k) != 0) xmean(k) = xmean(k) / static_cast<double>(noc(k));
  }
  const double g = n > 0 ? total / static_cast<double>(n) : 0.0;

  double between = 0.0;
  for (int k = 1; k <= nclass; ++k) {
    if (noc(k) == 0) continue;
    const double d = xmean(k) - g;
    between += static_cast<double>(noc(k)) * (d * d);
  }

  // Pass 2: squares about the class means and about the grand mean.
  double within = 0.0;
  double spread = 0.0;
  if constexpr (kMasked) {
    FView<const char> miss(misind->column(j));
    for (int i = 1; i <= n_all; ++i) {
      if (miss(i) == 'y') continue;
      const double dw = x(i) - xmean(y(i));
      within += dw * dw;
      const double dt = x(i) - g;
      spread += dt * dt;
    }
  } else {
    for (int i = 1; i <= n_all; ++i) {
      const double dw = x(i) - xmean(y(i));
      within += dw * dw;
      const double dt = x(i) - g;
      spread += dt * dt;
    }
  }

  for (int k = 1; k <= nclass; ++k) {
    mom.xmean(k, j) = xmean(k);
    mom.noc_used(k, j) = noc(k);
  }
  mom.gmean(j) = g;
  mom.mst(j) = mean_square(between, m - 1);
  mom.mse(j) = mean_square(within, n - m);
  mom.tss(j) = mean_square(spread, n - 1);
  mom.n_used(j) = n;
  mom.m_used(j) = m;
}

}  // namespace

void meanss(FMatrixView<const double> xdat, std::span<const int> ydat, std::span<const int> noc,
            int m, Moments& mom) {
  const int nvar = static_cast<int>(xdat.extent2());
  shape(mom, static_cast<int>(noc.size()), nvar);
  // Each column's sums run in case order within one task.
  parallel_for(1, nvar, static_cast<std::size_t>(xdat.extent1()), [&](std::ptrdiff_t j) {
    column_moments<false>(xdat, nullptr, ydat, noc, m, static_cast<int>(j), mom);
  });
}

void meanss_column(FMatrixView<const double> xdat, std::span<const int> ydat,
                   std::span<const int> noc, int m, int j, Moments& mom) {
  shape(mom, static_cast<int>(noc.size()), static_cast<int>(xdat.extent2()));
  column_moments<false>(xdat, nullptr, ydat, noc, m, j, mom);
}

void meanss1(FMatrixView<const double> xdat, FMatrixView<const char> misind,
             std::span<const int> ydat, int nclass, Moments& mom) {
  const int nvar = static_cast<int>(xdat.extent2());
  shape(mom, nclass, nvar);
  parallel_for(1, nvar, static_cast<std::size_t>(xdat.extent1()), [&](std::ptrdiff_t j) {
    column_moments<true>(xdat, &misind, ydat, {}, 0, static_cast<int>(j), mom);
  });
}

void meanss1_column(FMatrixView<const double> xdat, FMatrixView<const char> misind,
                    std::span<const int> ydat, int nclass, int j, Moments& mom) {
  shape(mom, nclass, static_cast<int>(xdat.extent2()));
  column_moments<true>(xdat, &misind, ydat, {}, 0, j, mom);
}

}  // namespace vardel
