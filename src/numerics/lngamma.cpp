// lngamma: ln Gamma(z) for z > 0 by the Lanczos approximation (g = 7, nine
// terms), good to about 14 significant digits except close to z = 1 and 2,
// where the value itself goes to 0. A zero or negative argument writes an
// error line to std::cout and gives 0.0.
#include <cmath>
#include <iostream>

#include "numerics/chi_squared.hpp"

namespace vardel {

double lngamma(double z) {
  const double a[10] = {0.0,
                        0.9999999999995183,
                        676.5203681218835,
                        -1259.139216722289,
                        771.3234287757674,
                        -176.6150291498386,
                        12.50734324009056,
                        -0.1385710331296526,
                        0.9934937113930748e-05,
                        0.1659470187408462e-06};
  const double lnsqrt2pi = 0.9189385332046727;  // ln sqrt(2*pi)

  if (z <= 0.0) {
    std::cout << "Error: zero or -ve argument for lngamma\n";
    return 0.0;
  }

  double sum = 0.0;
  double tmp = z + 7.0;
  for (int j = 9; j >= 2; --j) {
    sum = sum + a[j] / tmp;
    tmp = tmp - 1.0;
  }
  sum = sum + a[1];
  return std::log(sum) + lnsqrt2pi - (z + 6.5) + (z - 0.5) * std::log(z + 6.5);
}

}  // namespace vardel
