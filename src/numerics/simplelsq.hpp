// Straight-line least squares: fits y = constant + slope * x over the first
// n cases with unit weights, by the planar-rotation updater (QrLsq) with its
// constant option.
//
// fault is 0 for a good fit. It is non-zero when the fit failed: minus the
// number of dependent columns found (x constant over the cases makes the x
// column dependent on the constant's, and then slope is 0.0 and constant is
// the mean of y), or the fault of the coefficient solution when no column
// was found dependent.
#pragma once

#include <span>

namespace vardel {

void simplelsq(std::span<const double> x, std::span<const double> y, int n, int& fault,
               double& constant, double& slope);

}  // namespace vardel
