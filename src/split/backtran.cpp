// Split points back to the scale of the data (see backtran.hpp).
#include "split/backtran.hpp"

#include <cmath>

#include "split/guards.hpp"

namespace vardel {

void backtran(std::span<double> cutpt, double lambda, double shift) {
  const bool log_power = !(lambda > kTiny || lambda < -kTiny);
  for (double& c : cutpt) {
    if (!is_real_point(c)) continue;
    if (log_power) {
      c = std::exp(c) + shift;
    } else {
      const double u = c * lambda + 1.0;
      c = u >= 0.0 ? std::pow(u, 1.0 / lambda) + shift : shift;
    }
  }
}

}  // namespace vardel
