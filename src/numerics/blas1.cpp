// Level-1 vector kernels in their reference forms (see blas1.hpp).
#include "numerics/blas1.hpp"

#include <cmath>
#include <cstddef>

namespace vardel {

double dnrm2(std::span<const double> x) {
  const std::size_t n = x.size();
  if (n < 1) return 0.0;
  if (n == 1) return std::abs(x[0]);
  double scale = 0.0;
  double ssq = 1.0;
  for (std::size_t i = 0; i < n; ++i) {
    if (x[i] != 0.0) {
      const double absxi = std::abs(x[i]);
      if (scale < absxi) {
        const double t = scale / absxi;
        ssq = 1.0 + ssq * (t * t);
        scale = absxi;
      } else {
        const double t = absxi / scale;
        ssq = ssq + t * t;
      }
    }
  }
  return scale * std::sqrt(ssq);
}

double ddot(std::span<const double> x, std::span<const double> y) {
  double dtemp = 0.0;
  for (std::size_t i = 0; i < x.size(); ++i) dtemp = dtemp + x[i] * y[i];
  return dtemp;
}

void daxpy(double a, std::span<const double> x, std::span<double> y) {
  if (a == 0.0) return;
  for (std::size_t i = 0; i < x.size(); ++i) y[i] = y[i] + a * x[i];
}

void dscal(double a, std::span<double> x) {
  for (double& xi : x) xi = a * xi;
}

void dswap(std::span<double> x, std::span<double> y) {
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double t = x[i];
    x[i] = y[i];
    y[i] = t;
  }
}

void drot(std::span<double> x, std::span<double> y, double c, double s) {
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double t = c * x[i] + s * y[i];
    y[i] = c * y[i] - s * x[i];
    x[i] = t;
  }
}

void drotg(double& a, double& b, double& c, double& s) {
  double roe = b;
  if (std::abs(a) > std::abs(b)) roe = a;
  const double scale = std::abs(a) + std::abs(b);
  double r = 0.0;
  double z = 0.0;
  if (scale == 0.0) {
    c = 1.0;
    s = 0.0;
  } else {  // was L10
    const double as = a / scale;
    const double bs = b / scale;
    r = scale * std::sqrt(as * as + bs * bs);
    r = std::copysign(1.0, roe) * r;
    c = a / r;
    s = b / r;
    z = 1.0;
    if (std::abs(a) > std::abs(b)) z = s;
    if (std::abs(b) >= std::abs(a) && c != 0.0) z = 1.0 / c;
  }
  a = r;  // was L20
  b = z;
}

}  // namespace vardel
