// chi_squared: lower tail of the chi-square distribution, as the incomplete
// gamma integral at half the value with half the degrees of freedom.
#include "numerics/chi_squared.hpp"

namespace vardel {

double chi_squared(int df, double chisq) {
  return gammad(0.5 * chisq, 0.5 * df);
}

}  // namespace vardel
