// anova1 and the Levene tests select2, select4 and select6 built on it.
#include "split/levene.hpp"

#include <cmath>
#include <vector>

#include "split/select_numeric.hpp"

namespace vardel {
namespace {

int classes_present(std::span<const int> noc) {
  int m = 0;
  for (int c : noc) {
    if (c > 0) ++m;
  }
  return m;
}

// anova1 with the class means kept in b (K entries), so that callers testing
// many variables allocate it once.
double anova1_into(std::span<const double> dvals, std::span<const int> ydat,
                   std::span<const int> nocs, std::span<double> bvals) {
  FView<const double> d(dvals);
  FView<const int> y(ydat);
  FView<const int> noc(nocs);
  FView<double> b(bvals);
  const int n = static_cast<int>(d.size());
  const int nclass = static_cast<int>(noc.size());
  if (n == 0) return 0.0;

  double a = 0.0;
  for (int k = 1; k <= nclass; ++k) b(k) = 0.0;
  for (int i = 1; i <= n; ++i) {
    a += d(i);
    b(y(i)) += d(i);
  }
  a = a / static_cast<double>(n);
  for (int k = 1; k <= nclass; ++k) {
    if (noc(k) != 0) b(k) = b(k) / static_cast<double>(noc(k));
  }
  const int m = classes_present(nocs);

  double between = 0.0;
  if (m >= 2) {
    for (int k = 1; k <= nclass; ++k) {
      if (noc(k) == 0) continue;
      const double dk = b(k) - a;
      between += static_cast<double>(noc(k)) * (dk * dk);
    }
    between = between / static_cast<double>(m - 1);
  }
  if (between < kTiny) return 0.0;
  // One case per class present: no within-class degrees of freedom to test on.
  if (n - m <= 0) return 0.0;

  double within = 0.0;
  for (int i = 1; i <= n; ++i) {
    const double di = d(i) - b(y(i));
    within += di * di;
  }
  within = within / static_cast<double>(n - m);
  if (within < kTiny) return kHugeF;
  return between / within;
}

double levene_p(int m, int n, double f) {
  if (f == kHugeF) return 0.0;
  return f_test_p(m, n, f);
}

// select2 (keep the largest F) and select4 (keep the smallest p) over all cases.
template <bool kByP>
Pick levene_all_cases(FMatrixView<const double> xdat, std::span<const int> ydat,
                      std::span<const int> noc, std::span<const double> gmeans,
                      std::span<const char> vtype) {
  FView<const char> type(vtype);
  FView<const double> gmean(gmeans);
  const int n = static_cast<int>(xdat.extent1());
  const int m = classes_present(noc);
  std::vector<double> d(static_cast<std::size_t>(n));
  std::vector<double> b(noc.size());
  Pick best{0, kUntestedP, -1.0};
  for (int j = 1; j <= type.size(); ++j) {
    if (type(j) != 'n') continue;
    FView<const double> x(xdat.column(j));
    const double g = gmean(j);
    for (int i = 1; i <= n; ++i) d[static_cast<std::size_t>(i - 1)] = std::fabs(x(i) - g);
    const double f = anova1_into(d, ydat, noc, b);
    if constexpr (kByP) {
      const double p = levene_p(m, n, f);
      if (displaces(p, f, best)) best = {j, p, f};
    } else {
      if (f > best.stat) best = {j, 0.0, f};
    }
  }
  if (best.var == 0) return {};
  if constexpr (!kByP) best.p = levene_p(m, n, best.stat);
  return best;
}

}  // namespace

double anova1(std::span<const double> d, std::span<const int> ydat, std::span<const int> noc) {
  std::vector<double> b(noc.size());
  return anova1_into(d, ydat, noc, b);
}

Pick select2(FMatrixView<const double> xdat, std::span<const int> ydat, std::span<const int> noc,
             std::span<const double> gmean, std::span<const char> vtype) {
  return levene_all_cases<false>(xdat, ydat, noc, gmean, vtype);
}

Pick select4(FMatrixView<const double> xdat, std::span<const int> ydat, std::span<const int> noc,
             std::span<const double> gmean, std::span<const char> vtype) {
  return levene_all_cases<true>(xdat, ydat, noc, gmean, vtype);
}

Pick select6(FMatrixView<const double> xdat, FMatrixView<const char> misind,
             std::span<const int> ydat, int nclass, std::span<const double> gmeans,
             std::span<const char> vtype) {
  FView<const char> type(vtype);
  FView<const double> gmean(gmeans);
  FView<const int> y(ydat);
  const int n_all = static_cast<int>(xdat.extent1());
  // The present cells of one variable, packed: deviations, classes, counts.
  std::vector<double> d(static_cast<std::size_t>(n_all));
  std::vector<int> yd(static_cast<std::size_t>(n_all));
  std::vector<int> noc(static_cast<std::size_t>(nclass));
  std::vector<double> b(static_cast<std::size_t>(nclass));
  Pick best{0, kUntestedP, -1.0};
  for (int j = 1; j <= type.size(); ++j) {
    if (type(j) != 'n') continue;
    FView<const double> x(xdat.column(j));
    FView<const char> miss(misind.column(j));
    const double g = gmean(j);
    for (int& c : noc) c = 0;
    std::size_t n = 0;
    for (int i = 1; i <= n_all; ++i) {
      if (miss(i) == 'y') continue;
      d[n] = std::fabs(x(i) - g);
      yd[n] = y(i);
      ++noc[static_cast<std::size_t>(y(i) - 1)];
      ++n;
    }
    if (n < 2) continue;
    const std::span<const double> dj(d.data(), n);
    const std::span<const int> yj(yd.data(), n);
    const double f = anova1_into(dj, yj, noc, b);
    const double p = levene_p(classes_present(noc), static_cast<int>(n), f);
    if (displaces(p, f, best)) best = {j, p, f};
  }
  if (best.var == 0) return {};
  return best;
}

}  // namespace vardel
