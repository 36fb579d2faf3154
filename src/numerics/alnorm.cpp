// alnorm: tail area of the standard normal curve, algorithm AS 66 (Hill 1973).
// From z to infinity when upper, from minus infinity to z otherwise.
#include <cmath>

#include "numerics/chi_squared.hpp"

namespace vardel {

double alnorm(double x, bool upper) {
  // Beyond ltone the lower tail is taken as 1; beyond utzero the upper tail
  // underflows to 0.
  const double ltone = 7.0;
  const double utzero = 18.66;
  // Below con the first rational form is used, above it the continued fraction.
  const double con = 1.28;

  const double p = 0.398942280444;
  const double q = 0.399903438504;
  const double r = 0.398942280385;
  const double a1 = 5.75885480458;
  const double a2 = 2.62433121679;
  const double a3 = 5.92885724438;
  const double b1 = -29.8213557807;
  const double b2 = 48.6959930692;
  const double c1 = -3.8052e-8;
  const double c2 = 3.98064794e-4;
  const double c3 = -0.151679116635;
  const double c4 = 4.8385912808;
  const double c5 = 0.742380924027;
  const double c6 = 3.99019417011;
  const double d1 = 1.00000615302;
  const double d2 = 1.98615381364;
  const double d3 = 5.29330324926;
  const double d4 = -15.1508972451;
  const double d5 = 30.789933034;

  bool up = upper;
  double z = x;
  if (z < 0.0) {
    up = !up;
    z = -z;
  }
  double result;
  if (z <= ltone || (up && z <= utzero)) {
    const double y = 0.5 * z * z;  // was L20
    if (z > con) {
      // was L30
      result =
          r * std::exp(-y) /
          (z + c1 + d1 / (z + c2 + d2 / (z + c3 + d3 / (z + c4 + d4 / (z + c5 + d5 / (z + c6))))));
    } else {
      result = 0.5 - z * (p - q * y / (y + a1 + b1 / (y + a2 + b2 / (y + a3))));
    }
  } else {
    result = 0.0;
  }
  if (!up) result = 1.0 - result;  // was L40
  return result;
}

}  // namespace vardel
