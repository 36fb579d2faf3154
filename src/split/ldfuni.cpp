// One-dimensional linear discriminant functions (see ldfuni.hpp).
#include "split/ldfuni.hpp"

#include <cmath>
#include <cstddef>

#include "split/guards.hpp"

namespace vardel {
namespace {

// Variance of x over all cases, with the sum of deviations as a correction
// for the rounding of the mean; 0 for fewer than two cases.
double total_variance(std::span<const double> x) {
  if (x.size() < 2) return 0.0;
  const double dn = static_cast<double>(x.size());
  double sum = 0.0;
  for (const double v : x) sum += v;
  const double a = sum / dn;
  double d = 0.0;
  double q = 0.0;
  for (const double v : x) {
    d += v - a;
    q += (v - a) * (v - a);
  }
  return (q - d * d / dn) / (dn - 1.0);
}

}  // namespace

bool ldfuni(std::span<const double> x, double mse, std::span<const double> xmean,
            std::span<const double> w, std::span<const int> noc, FArray<double>& coef) {
  using Index = std::ptrdiff_t;
  const Index nclass = static_cast<Index>(noc.size());
  coef.assign(nclass, 2, 0.0);

  double var = mse;
  if (var <= kTiny) {
    var = total_variance(x);
    if (var <= kTiny) return false;
  }

  const FView<const double> xm(xmean);
  const FView<const double> wt(w);
  const FView<const int> nc(noc);
  for (Index k = 1; k <= nclass; ++k) {
    if (nc(k) == 0) continue;
    const double slope = xm(k) / var;
    coef(k, 1) = std::log(wt(k)) - 0.5 * slope * xm(k);
    coef(k, 2) = slope;
  }
  return true;
}

}  // namespace vardel
