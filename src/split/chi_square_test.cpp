// chi_sq, chi_sq1, chi_sq5: choosing among the categorical predictors by the
// chi-square test of their contingency tables with the class.
#include "split/chi_square_test.hpp"

#include <cmath>
#include <cstdint>
#include <iostream>
#include <vector>

#include "numerics/chi_squared.hpp"
#include "numerics/parallel_for.hpp"
#include "numerics/round_to_long.hpp"
#include "run/stop.hpp"

namespace vardel {
namespace {

// Work arrays of one call, reshaped for each variable.
struct Table {
  FArray<int> obs;         // K by numcat: cases of class k with code j
  FArray<std::int64_t> t;  // numcat column totals
  FArray<int> noc;         // K class counts of the counted cases
};

struct ChiSquare {
  double x = 0.0;
  double p = 1.0;
  bool bad = false;  // a code outside the column's range was met: bad_value
  double bad_value = 0.0;
};

[[noreturn]] void bad_code(int column, double value) {
  std::cout << "Category code " << value << " of variable " << column
            << " is outside its range; cannot split." << '\n';
  stop_run(1);
}

// The chi-square test of column j with ncodes categories. Masked: only the
// cases with misind(i, j) == 'n' count, with their own class counts;
// otherwise every case counts, noc_all holds the class counts and m_all the
// classes present.
template <bool kMasked>
ChiSquare test_column(FMatrixView<const double> xdat, const FMatrixView<const char>* misind,
                      std::span<const int> ydat, std::span<const int> noc_all, int m_all, int j,
                      int ncodes, Table& tab) {
  const int n_all = static_cast<int>(xdat.extent1());
  const int nclass = static_cast<int>(tab.noc.size());
  FView<const double> x(xdat.column(j));
  FView<const int> y(ydat);
  tab.obs.assign(nclass, ncodes, 0);
  tab.t.assign(ncodes, 0);

  int n = 0;
  if constexpr (kMasked) {
    FView<const char> miss(misind->column(j));
    tab.noc.fill(0);
    for (int i = 1; i <= n_all; ++i) {
      if (miss(i) == 'y') continue;
      const long code = round_to_long(x(i));
      if (code < 1 || code > ncodes) return {0.0, 1.0, true, x(i)};
      ++tab.obs(y(i), code);
      ++tab.noc(y(i));
      ++n;
    }
  } else {
    for (int i = 1; i <= n_all; ++i) {
      const long code = round_to_long(x(i));
      if (code < 1 || code > ncodes) return {0.0, 1.0, true, x(i)};
      ++tab.obs(y(i), code);
    }
    for (int k = 1; k <= nclass; ++k) tab.noc(k) = noc_all[static_cast<std::size_t>(k - 1)];
    n = n_all;
  }
  if (n == 0) return {};

  int m = m_all;
  if constexpr (kMasked) {
    m = 0;
    for (int k = 1; k <= nclass; ++k) {
      if (tab.noc(k) > 0) ++m;
    }
  }
  int q = 0;
  for (int c = 1; c <= ncodes; ++c) {
    for (int k = 1; k <= nclass; ++k) tab.t(c) += tab.obs(k, c);
    if (tab.t(c) > 0) ++q;
  }

  const float fn = static_cast<float>(n);
  double chisq = 0.0;
  for (int c = 1; c <= ncodes; ++c) {
    for (int k = 1; k <= nclass; ++k) {
      const std::int64_t product = static_cast<std::int64_t>(tab.noc(k)) * tab.t(c);
      const float e_single = static_cast<float>(product) / fn;
      const double e = static_cast<double>(e_single);
      const double d = static_cast<double>(tab.obs(k, c)) - e;
      chisq += d * d / (kTiny + e);
    }
  }
  const int df = m * q - m - q + 1;
  return {chisq, 1.0 - chi_squared(df, chisq)};
}

// The tests of the categorical columns, one task per column; the run ends at
// the first column (in column order) that holds a code outside its range.
template <bool kMasked>
std::vector<ChiSquare> test_columns(FMatrixView<const double> xdat,
                                    const FMatrixView<const char>* misind,
                                    std::span<const int> ydat, std::span<const int> noc_all,
                                    int m_all, int nclass, std::span<const int> catpos,
                                    std::span<const int> numcat) {
  FView<const int> pos(catpos);
  FView<const int> ncodes(numcat);
  std::vector<ChiSquare> results(static_cast<std::size_t>(pos.size()));
  parallel_for(1, pos.size(), static_cast<std::size_t>(xdat.extent1()), [&](std::ptrdiff_t c) {
    Table tab;
    tab.noc.assign(nclass, 0);
    results[static_cast<std::size_t>(c - 1)] =
        test_column<kMasked>(xdat, misind, ydat, noc_all, m_all, pos(c), ncodes(c), tab);
  });
  for (int c = 1; c <= pos.size(); ++c) {
    const ChiSquare& r = results[static_cast<std::size_t>(c - 1)];
    if (r.bad) bad_code(pos(c), r.bad_value);
  }
  return results;
}

template <bool kMasked>
Pick best_of(FMatrixView<const double> xdat, const FMatrixView<const char>* misind,
             std::span<const int> ydat, std::span<const int> noc_all, int m_all, int nclass,
             std::span<const int> catpos, std::span<const int> numcat) {
  FView<const int> pos(catpos);
  if (pos.size() == 0) return {};
  const std::vector<ChiSquare> results =
      test_columns<kMasked>(xdat, misind, ydat, noc_all, m_all, nclass, catpos, numcat);
  Pick best{pos(1), kUntestedP, 0.0};
  for (int c = 1; c <= pos.size(); ++c) {
    const ChiSquare& r = results[static_cast<std::size_t>(c - 1)];
    if (displaces(r.p, r.x, best)) best = {pos(c), r.p, r.x};
  }
  return best;
}

}  // namespace

Pick chi_sq(FMatrixView<const double> xdat, std::span<const int> ydat, std::span<const int> noc,
            int m, std::span<const int> catpos, std::span<const int> numcat) {
  return best_of<false>(xdat, nullptr, ydat, noc, m, static_cast<int>(noc.size()), catpos, numcat);
}

Pick chi_sq1(FMatrixView<const double> xdat, FMatrixView<const char> misind,
             std::span<const int> ydat, int nclass, std::span<const int> catpos,
             std::span<const int> numcat) {
  return best_of<true>(xdat, &misind, ydat, {}, 0, nclass, catpos, numcat);
}

TwoBest chi_sq5(FMatrixView<const double> xdat, FMatrixView<const char> misind,
                std::span<const int> ydat, int nclass, std::span<const int> catpos,
                std::span<const int> numcat) {
  FView<const int> pos(catpos);
  FView<const int> ncodes(numcat);
  const auto nvar = static_cast<std::size_t>(xdat.extent2());
  std::vector<double> p(nvar, kUntestedP);
  std::vector<double> x(nvar, 0.0);
  std::vector<char> vtype(nvar, 'n');
  const std::vector<ChiSquare> results =
      test_columns<true>(xdat, &misind, ydat, {}, 0, nclass, catpos, numcat);
  for (int c = 1; c <= pos.size(); ++c) {
    const auto at = static_cast<std::size_t>(pos(c) - 1);
    const ChiSquare& r = results[static_cast<std::size_t>(c - 1)];
    p[at] = r.p;
    x[at] = r.x;
    vtype[at] = 'c';
  }
  return rank_first_two(p, x, vtype, 'c');
}

}  // namespace vardel
