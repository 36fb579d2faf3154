// Machine limits for IEEE arithmetic, taken from std::numeric_limits and
// turned into the derived limits by the same arithmetic as the classic
// machine-constant routines: powers of the base built up by multiplication,
// the largest magnitude assembled so that no intermediate overflows.
#include "numerics/constants_nswc.hpp"

#include <cmath>
#include <limits>

namespace vardel::constants_nswc {

namespace {

// b**n for integer n, by repeated multiplication (exact for b = 2).
double ipow(double b, int n) {
  double r = 1.0;
  const bool negative = n < 0;
  if (negative) n = -n;
  for (int k = 1; k <= n; ++k) r = r * b;
  return negative ? 1.0 / r : r;
}

}  // namespace

int ipmpar(int i) {
  using I = std::numeric_limits<int>;
  using F = std::numeric_limits<float>;
  using D = std::numeric_limits<double>;
  switch (i) {
    case 1:
      return I::radix;
    case 2:
      return I::digits;
    case 3:
      return I::max();
    case 4:
      return D::radix;
    case 5:
      return F::digits;
    case 6:
      return F::min_exponent;
    case 7:
      return F::max_exponent;
    case 8:
      return D::digits;
    case 9:
      return D::min_exponent;
    case 10:
      return D::max_exponent;
    default:
      return 0;
  }
}

double dpmpar(int i) {
  const double b = ipmpar(4);
  if (i <= 1) {
    // b**(1 - m), the machine precision
    const int m = ipmpar(8);
    return ipow(b, 1 - m);
  }
  if (i == 2) {
    // b**(emin - 1), the smallest normal magnitude
    const int emin = ipmpar(9);
    const double binv = 1.0 / b;
    const double w = ipow(b, emin + 2);
    return ((w * binv) * binv) * binv;
  }
  // b**emax * (1 - b**(-m)), the largest magnitude
  const int m = ipmpar(8);
  const int emax = ipmpar(10);
  const double bm1 = b - 1.0;
  double z = ipow(b, m - 1);
  const double w = ((z - 1.0) * b + bm1) / (b * z);
  z = ipow(b, emax - 2);
  return ((w * z) * b) * b;
}

double spmpar(int i) {
  return dpmpar(i);
}

double depsln() {
  return (1 - ipmpar(8)) * std::log(static_cast<double>(ipmpar(4)));
}
double epsln() {
  return depsln();
}

double dxparg(int l) {
  // ln b, exact enough for the binary, octal and hexadecimal bases
  const int ib = ipmpar(4);
  double lnb;
  if (ib == 2) {
    lnb = .69314718055995;
  } else if (ib == 8) {
    lnb = 2.0794415416798;
  } else if (ib == 16) {
    lnb = 2.7725887222398;
  } else {
    lnb = std::log(static_cast<double>(ib));
  }
  // The factor 0.99999 keeps the bound just inside the representable range.
  if (l != 0) {
    const int m = ipmpar(9) - 1;
    return 0.99999 * (m * lnb);
  }
  const int m = ipmpar(10);
  return 0.99999 * (m * lnb);
}

double exparg(int l) {
  return dxparg(l);
}

}  // namespace vardel::constants_nswc
