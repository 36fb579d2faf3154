// gammad: the incomplete gamma integral P(p, x), algorithm AS 239.
//
// Pearson's series for x <= 1 or x < p, a continued fraction otherwise, and
// the Wilson-Hilferty normal approximation once p exceeds 1000.
#include <algorithm>
#include <cmath>

#include "numerics/chi_squared.hpp"

namespace vardel {

double gammad(double x, double p) {
  const double tol = 1.e-14;     // convergence of the series and the fraction
  const double oflo = 1.e+37;    // rescale the fraction's terms beyond this
  const double dmin = 1.e-37;    // the fraction's divisor must exceed this
  const double elimit = -88.0;   // exp of a log below this counts as 0
  const double xbig = 1.e+8;     // beyond this x the integral is 1
  const double plimit = 1000.0;  // beyond this p use the normal approximation

  // x or p not above 0: no integral (x = 0 is the legitimate value 0)
  if (p <= 0.0 || x <= 0.0) return 0.0;

  if (p > plimit) {
    const double pn1 = 3.0 * std::sqrt(p) * (std::pow(x / p, 1.0 / 3.0) + 1.0 / (9.0 * p) - 1.0);
    return alnorm(pn1, false);
  }

  if (x > xbig) return 1.0;

  double result;
  if (x <= 1.0 || x < p) {
    // Pearson's series expansion (p is too small to overflow lngamma here)
    double arg = p * std::log(x) - x - lngamma(p + 1.0);
    double c = 1.0;
    result = 1.0;
    double a = p;
    do {  // was L40
      a = a + 1.0;
      c = c * x / a;
      result = result + c;
    } while (c > tol);
    arg = arg + std::log(result);
    result = 0.0;
    if (arg >= elimit) result = std::exp(arg);
    return result;
  }

  // Continued fraction expansion
  double arg = p * std::log(x) - x - lngamma(p);
  double a = 1.0 - p;
  double b = a + x + 1.0;
  double c = 0.0;
  double pn1 = 1.0;
  double pn2 = x;
  double pn3 = x + 1.0;
  double pn4 = x * b;
  result = pn3 / pn4;
  for (;;) {  // was L60
    a = a + 1.0;
    b = b + 2.0;
    c = c + 1.0;
    const double an = a * c;
    const double pn5 = b * pn3 - an * pn1;
    const double pn6 = b * pn4 - an * pn2;
    if (std::fabs(pn6) > dmin) {
      const double rn = pn5 / pn6;
      if (std::fabs(result - rn) <= std::min(tol, tol * rn)) break;
      result = rn;
    }
    pn1 = pn3;
    pn2 = pn4;
    pn3 = pn5;
    pn4 = pn6;
    if (std::fabs(pn5) >= oflo) {
      // Rescale the terms of the fraction when they grow large
      pn1 = pn1 / oflo;
      pn2 = pn2 / oflo;
      pn3 = pn3 / oflo;
      pn4 = pn4 / oflo;
    }
  }
  // was L80
  arg = arg + std::log(result);
  result = 1.0;
  if (arg >= elimit) result = 1.0 - std::exp(arg);
  return result;
}

}  // namespace vardel
