// Asymptotic expansions for I_x(a, b): bgrat (a large, b <= 1), with grat1,
// the incomplete gamma ratio it needs, and basym (a and b both large).
#include <cmath>

#include "numerics/inc_beta.hpp"

namespace vardel::inc_beta {

// Asymptotic expansion for I_x(a, b) when a is larger than b; the result is
// added to w. Assumes a >= 15 and b <= 1. ierr is 0 on success, 1 when the
// expansion cannot be started and 2 when its sum turns non-positive; w is
// then left as it was.
void bgrat(double a, double b, double x, double y, double& w, double eps, int& ierr) {
  // 30 terms reach full accuracy over the region where bgrat is used.
  constexpr int kTerms = 30;
  double c[kTerms + 1];
  double d[kTerms + 1];

  const double bm1 = (b - 0.5) - 0.5;
  const double nu = a + 0.5 * bm1;
  double lnx;
  if (y <= 0.375) {
    lnx = alnrel(-y);
  } else {
    lnx = std::log(x);  // L10
  }
  const double z = -nu * lnx;  // L11
  if (b * z == 0.0) {          // L100
    ierr = 1;
    return;
  }

  // Computation of the expansion. Set r = exp(-z) * z**b / Gamma(b)
  double r = b * (1.0 + gam1(b)) * std::exp(b * std::log(z));
  r = r * std::exp(a * lnx) * std::exp(0.5 * bm1 * lnx);
  double u = algdiv(b, a) + b * std::log(nu);
  u = r * std::exp(-u);
  if (u == 0.0) {  // L100
    ierr = 1;
    return;
  }
  double p;
  double q;
  grat1(b, z, r, p, q, eps);

  const double v = 0.25 * ((1.0 / nu) * (1.0 / nu));
  const double t2 = 0.25 * lnx * lnx;
  const double l = w / u;
  double j = q / r;
  double sum = j;
  double t = 1.0;
  double cn = 1.0;
  double n2 = 0.0;
  for (int n = 1; n <= kTerms; ++n) {
    const double bp2n = b + n2;
    j = (bp2n * (bp2n + 1.0) * j + (z + bp2n + 1.0) * t) * v;
    n2 = n2 + 2.0;
    t = t * t2;
    cn = cn / (n2 * (n2 + 1.0));
    c[n] = cn;
    double s = 0.0;
    if (n != 1) {
      const int nm1 = n - 1;
      double coef = b - n;
      for (int i = 1; i <= nm1; ++i) {
        s = s + coef * c[i] * d[n - i];
        coef = coef + b;
      }
    }
    d[n] = bm1 * cn + s / n;  // L21
    const double dj = d[n] * j;
    sum = sum + dj;
    if (sum <= 0.0) {  // L200
      ierr = 2;
      return;
    }
    if (std::fabs(dj) <= eps * (sum + l)) break;
  }

  // L30: add the results to w
  ierr = 0;
  w = w + u * sum;
}

// The incomplete gamma ratios P(a, x) and Q(a, x) for a <= 1, given
// r = exp(-x) * x**a / Gamma(a).
void grat1(double a, double x, double r, double& p, double& q, double eps) {
  if (a * x == 0.0) {  // L130
    if (x <= a) {      // L100
      p = 0.0;
      q = 1.0;
    } else {  // L110
      p = 1.0;
      q = 0.0;
    }
    return;
  }
  if (a == 0.5) {  // L120
    if (x < 0.25) {
      p = erf(std::sqrt(x));
      q = 0.5 + (0.5 - p);
    } else {
      q = erfc1(0, std::sqrt(x));  // L121
      p = 0.5 + (0.5 - q);
    }
    return;
  }
  if (x >= 1.1) {
    // L50: continued fraction expansion
    double a2nm1 = 1.0;
    double a2n = 1.0;
    double b2nm1 = x;
    double b2n = x + (1.0 - a);
    double c = 1.0;
    double am0;
    double an0;
    do {  // L51
      a2nm1 = x * a2n + c * a2nm1;
      b2nm1 = x * b2n + c * b2nm1;
      am0 = a2nm1 / b2nm1;
      c = c + 1.0;
      const double cma = c - a;
      a2n = a2nm1 + cma * a2n;
      b2n = b2nm1 + cma * b2n;
      an0 = a2n / b2n;
    } while (std::fabs(an0 - am0) >= eps * an0);
    q = r * an0;
    p = 0.5 + (0.5 - q);
    return;
  }

  // L10: Taylor series for P(a, x) / x**a
  double an = 3.0;
  double c = x;
  double sum = x / (a + 3.0);
  const double tol = 0.1 * eps / (a + 1.0);
  double t;
  do {  // L11
    an = an + 1.0;
    c = -c * (x / an);
    t = c / (a + an);
    sum = sum + t;
  } while (std::fabs(t) > tol);
  const double j = a * x * ((sum / 6.0 - 0.5 / (a + 2.0)) * x + 1.0 / (a + 1.0));

  const double z = a * std::log(x);
  const double h = gam1(a);
  const double g = 1.0 + h;
  bool direct;
  if (x < 0.25) {
    direct = z <= -.13394;  // L20
  } else {
    direct = a >= x / 2.59;
  }
  if (direct) {
    // L30
    const double w = std::exp(z);
    p = w * g * (0.5 + (0.5 - j));
    q = 0.5 + (0.5 - p);
    return;
  }
  // L40
  const double l = rexp(z);
  const double w = 0.5 + (0.5 + l);
  q = (w * j - l) * g - h;
  if (q < 0.0) {  // L110
    p = 1.0;
    q = 0.0;
    return;
  }
  p = 0.5 + (0.5 - q);
}

// Asymptotic expansion for I_x(a, b) for large a and b, with
// lambda = (a + b)*y - b >= 0 and a, b >= 15.
double basym(double a, double b, double lambda, double eps) {
  // kNum is the largest n of the expansion loop; it must be even. The
  // coefficient arrays hold kNum + 1 terms.
  constexpr int kNum = 20;
  double a0[kNum + 2];
  double b0[kNum + 2];
  double c[kNum + 2];
  double d[kNum + 2];

  const double e0 = 1.12837916709551;  // 2/sqrt(pi)
  const double e1 = .353553390593274;  // 2**(-3/2)

  double h;
  double r0;
  double r1;
  double w0;
  if (a < b) {
    h = a / b;
    r0 = 1.0 / (1.0 + h);
    r1 = (b - a) / b;
    w0 = 1.0 / std::sqrt(a * (1.0 + h));
  } else {
    h = b / a;  // L10
    r0 = 1.0 / (1.0 + h);
    r1 = (b - a) / a;
    w0 = 1.0 / std::sqrt(b * (1.0 + h));
  }

  const double f = a * rlog1(-lambda / a) + b * rlog1(lambda / b);  // L20
  const double t = std::exp(-f);
  if (t == 0.0) return 0.0;
  const double z0 = std::sqrt(f);
  const double z = 0.5 * (z0 / e1);
  const double z2 = f + f;

  a0[1] = (2.0 / 3.0) * r1;
  c[1] = -0.5 * a0[1];
  d[1] = -c[1];
  double j0 = (0.5 / e0) * erfc1(1, z0);
  double j1 = e1;
  double sum = j0 + d[1] * w0 * j1;

  double s = 1.0;
  const double h2 = h * h;
  double hn = 1.0;
  double w = w0;
  double znm1 = z;
  double zn = z2;
  for (int n = 2; n <= kNum; n += 2) {
    hn = h2 * hn;
    a0[n] = 2.0 * r0 * (1.0 + h * hn) / (n + 2.0);
    const int np1 = n + 1;
    s = s + hn;
    a0[np1] = 2.0 * r1 * s / (n + 3.0);

    for (int i = n; i <= np1; ++i) {
      const double r = -0.5 * (i + 1.0);
      b0[1] = r * a0[1];
      for (int m = 2; m <= i; ++m) {
        double bsum = 0.0;
        const int mm1 = m - 1;
        for (int jj = 1; jj <= mm1; ++jj) {
          const int mmj = m - jj;
          bsum = bsum + (jj * r - mmj) * a0[jj] * b0[mmj];
        }
        b0[m] = r * a0[m] + bsum / m;
      }
      c[i] = b0[i] / (i + 1.0);

      double dsum = 0.0;
      const int im1 = i - 1;
      for (int jj = 1; jj <= im1; ++jj) {
        const int imj = i - jj;
        dsum = dsum + d[imj] * c[jj];
      }
      d[i] = -(dsum + c[i]);
    }

    j0 = e1 * znm1 + (n - 1.0) * j0;
    j1 = e1 * zn + n * j1;
    znm1 = z2 * znm1;
    zn = z2 * zn;
    w = w0 * w;
    const double t0 = d[n] * w * j0;
    w = w0 * w;
    const double t1 = d[np1] * w * j1;
    sum = sum + (t0 + t1);
    if ((std::fabs(t0) + std::fabs(t1)) <= eps * sum) break;
  }

  // L60: compute the final result
  const double u = std::exp(-bcorr(a, b));
  return e0 * t * u * sum;
}

}  // namespace vardel::inc_beta
