// fprob: upper and lower tails of the F distribution through the incomplete
// beta ratio, P(F' > f) = I_x(ddf/2, ndf/2) with x = ddf / (ddf + ndf*f).
#include "numerics/fprob.hpp"

#include "numerics/inc_beta.hpp"

namespace vardel {

void fprob(int ndf, int ddf, double f, double& p, double& q, int& status) {
  status = 0;
  if (ndf <= 0 || ddf <= 0) {
    status = 1;
    return;
  }
  // f = 0 is legal (p = 1); a NaN is no more a legal value than a negative f.
  if (!(f >= 0.0)) {
    status = 2;
    return;
  }
  const double d1 = ndf;
  const double d2 = ddf;
  const double x = d2 / (d2 + d1 * f);
  const double y = 1.0 - x;
  bratio(d2 / 2.0, d1 / 2.0, x, y, p, q, status);
}

}  // namespace vardel
