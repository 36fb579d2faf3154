// Power series, finite sum and continued fraction for I_x(a, b):
// fpser (b very small), apser (a very small), bpser (b <= 1 or b*x <= 0.7),
// bup (I_x(a,b) - I_x(a+n,b) as n terms) and bfrac (a, b > 1).
#include <algorithm>
#include <cmath>

#include "numerics/constants_nswc.hpp"
#include "numerics/inc_beta.hpp"

namespace vardel::inc_beta {

// I_x(a, b) for b < min(eps, eps*a) and x <= 0.5.
double fpser(double a, double b, double x, double eps) {
  // Set fpser = x**a
  double result = 1.0;
  if (a > 1.e-3 * eps) {
    result = 0.0;
    const double t = a * std::log(x);
    if (t < constants_nswc::exparg(1)) return result;
    result = std::exp(t);
  }
  // L10: note that 1/B(a,b) = b
  result = (b / a) * result;
  const double tol = eps / a;
  double an = a + 1.0;
  double t = x;
  double s = t / an;
  double c;
  do {  // L20
    an = an + 1.0;
    t = x * t;
    c = t / an;
    s = s + c;
  } while (std::fabs(c) > tol);
  return result * (1.0 + a * s);
}

// I_{1-x}(b, a) for a <= min(eps, eps*b), b*x <= 1 and x <= 0.5.
double apser(double a, double b, double x, double eps) {
  const double g = .577215664901533;  // Euler's constant

  const double bx = b * x;
  double t = x - bx;
  double c;
  if (b * eps <= 2.e-2) {
    c = std::log(x) + psi(b) + g + t;
  } else {
    c = std::log(bx) + g + t;  // L10
  }
  const double tol = 5.0 * eps * std::fabs(c);  // L20
  double j = 1.0;
  double s = 0.0;
  double aj;
  do {  // L30
    j = j + 1.0;
    t = t * (x - bx / j);
    aj = t / j;
    s = s + aj;
  } while (std::fabs(aj) > tol);
  return -a * (c + s);
}

// Power series for I_x(a, b) when b <= 1 or b*x <= 0.7.
double bpser(double a, double b, double x, double eps) {
  double result = 0.0;
  if (x == 0.0) return result;

  // Compute the factor x**a / (a * B(a,b))
  const double a0 = std::min(a, b);
  if (a0 >= 1.0) {
    const double z = a * std::log(x) - betaln(a, b);
    result = std::exp(z) / a;
  } else {
    double b0 = std::max(a, b);  // L10
    if (b0 >= 8.0) {
      // L60: procedure for a0 < 1 and b0 >= 8
      const double u = gamln1(a0) + algdiv(a0, b0);
      const double z = a * std::log(x) - u;
      result = (a0 / a) * std::exp(z);
    } else if (b0 > 1.0) {
      // L40: procedure for a0 < 1 and 1 < b0 < 8
      double u = gamln1(a0);
      const int m = static_cast<int>(b0 - 1.0);
      if (m >= 1) {
        double c = 1.0;
        for (int i = 1; i <= m; ++i) {
          b0 = b0 - 1.0;
          c = c * (b0 / (a0 + b0));
        }
        u = std::log(c) + u;
      }
      const double z = a * std::log(x) - u;  // L50
      b0 = b0 - 1.0;
      const double apb = a0 + b0;
      double t;
      if (apb <= 1.0) {
        t = 1.0 + gam1(apb);
      } else {
        const double u1 = a0 + b0 - 1.0;  // L51
        t = (1.0 + gam1(u1)) / apb;
      }
      result = std::exp(z) * (a0 / a) * (1.0 + gam1(b0)) / t;  // L52
    } else {
      // Procedure for a0 < 1 and b0 <= 1
      result = std::pow(x, a);
      if (result == 0.0) return result;
      const double apb = a + b;
      double z;
      if (apb <= 1.0) {
        z = 1.0 + gam1(apb);
      } else {
        const double u = a + b - 1.0;  // L20
        z = (1.0 + gam1(u)) / apb;
      }
      const double c = (1.0 + gam1(a)) * (1.0 + gam1(b)) / z;  // L30
      result = result * c * (b / apb);
    }
  }
  // L70
  if (result == 0.0 || a <= 0.1 * eps) return result;

  // Compute the series
  double sum = 0.0;
  double n = 0.0;
  double c = 1.0;
  const double tol = eps / a;
  double w;
  do {  // L100
    n = n + 1.0;
    c = c * (0.5 + (0.5 - b / n)) * x;
    w = c / (a + n);
    sum = sum + w;
  } while (std::fabs(w) > tol);
  return result * (1.0 + a * sum);
}

// I_x(a, b) - I_x(a+n, b) for a positive integer n, with y = 1 - x.
double bup(double a, double b, double x, double y, int n, double eps) {
  // Obtain the scaling factor exp(-mu) and exp(mu) * (x**a * y**b / B(a,b)) / a
  const double apb = a + b;
  const double ap1 = a + 1.0;
  int mu = 0;
  double d = 1.0;
  if (n != 1 && a >= 1.0 && apb >= 1.1 * ap1) {
    mu = static_cast<int>(std::fabs(constants_nswc::exparg(1)));
    const int k = static_cast<int>(constants_nswc::exparg(0));
    if (k < mu) mu = k;
    const double t = mu;
    d = std::exp(-t);
  }
  // L10
  double result = brcmp1(mu, a, b, x, y) / a;
  if (n == 1 || result == 0.0) return result;
  const int nm1 = n - 1;
  double w = d;

  // Let k be the index of the maximum term
  int k = 0;
  bool increasing = false;
  if (b > 1.0) {
    if (y <= 1.e-4) {
      k = nm1;
      increasing = true;
    } else {
      const double r = (b - 1.0) * x / y - a;  // L20
      if (r >= 1.0) {
        k = nm1;
        const double t = nm1;
        if (r < t) k = static_cast<int>(r);
        increasing = true;
      }
    }
  }
  if (increasing) {
    // L30: add the increasing terms of the series
    for (int i = 1; i <= k; ++i) {
      const double l = i - 1;
      d = ((apb + l) / (ap1 + l)) * x * d;
      w = w + d;
    }
  }
  if (k != nm1) {
    // L40: add the remaining terms of the series
    const int kp1 = k + 1;
    for (int i = kp1; i <= nm1; ++i) {
      const double l = i - 1;
      d = ((apb + l) / (ap1 + l)) * x * d;
      w = w + d;
      if (d <= eps * w) break;
    }
  }
  return result * w;  // L50
}

// Continued fraction for I_x(a, b) when a, b > 1, with lambda = (a + b)*y - b.
double bfrac(double a, double b, double x, double y, double lambda, double eps) {
  double result = brcomp(a, b, x, y);
  if (result == 0.0) return result;

  const double c = 1.0 + lambda;
  const double c0 = b / a;
  const double c1 = 1.0 + 1.0 / a;
  const double yp1 = y + 1.0;

  double n = 0.0;
  double p = 1.0;
  double s = a + 1.0;
  double an = 0.0;
  double bn = 1.0;
  double anp1 = 1.0;
  double bnp1 = c / c1;
  double r = c1 / c;

  // Continued fraction calculation
  for (;;) {  // L10
    n = n + 1.0;
    double t = n / a;
    const double w = n * (b - n) * x;
    double e = a / s;
    const double alpha = (p * (p + c0) * e * e) * (w * x);
    e = (1.0 + t) / (c1 + t + t);
    const double beta = n + w / s + e * (c + n * yp1);
    p = 1.0 + t;
    s = s + 2.0;

    // Update an, bn, anp1 and bnp1
    t = alpha * an + beta * anp1;
    an = anp1;
    anp1 = t;
    t = alpha * bn + beta * bnp1;
    bn = bnp1;
    bnp1 = t;

    const double r0 = r;
    r = anp1 / bnp1;
    if (std::fabs(r - r0) <= eps * r) break;

    // Rescale an, bn, anp1 and bnp1
    an = an / bnp1;
    bn = bn / bnp1;
    anp1 = r;
    bnp1 = 1.0;
  }
  return result * r;  // L20
}

}  // namespace vardel::inc_beta
