// Straight-line least squares (see simplelsq.hpp).
#include "numerics/simplelsq.hpp"

#include <array>

#include "numerics/qr_lsq.hpp"

namespace vardel {

void simplelsq(std::span<const double> x, std::span<const double> y, int n, int& fault,
               double& constant, double& slope) {
  QrLsq fit;
  fit.init_qr_lsq(1, true);
  for (int i = 0; i < n; ++i) {
    const std::array<double, 1> row{x[static_cast<std::size_t>(i)]};
    fit.includ(1.0, row, y[static_cast<std::size_t>(i)]);
  }
  fit.tolset();

  std::array<bool, 2> lindep{};
  int sing_fault = 0;
  fit.sing(lindep, sing_fault);

  std::array<double, 2> beta{};
  int regcf_fault = 0;
  fit.regcf(beta, 2, regcf_fault);

  fault = sing_fault != 0 ? sing_fault : regcf_fault;
  constant = beta[0];
  slope = beta[1];
}

}  // namespace vardel
