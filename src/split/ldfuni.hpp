// One-dimensional linear discriminant functions with a common variance.
//
// In: x (n values of the variable, used only when mse is at or below kTiny),
// mse (within-class variance), xmean (K class means), w (K class weights,
// priors and costs together), noc (K case counts).
// Out: coef, K by 2: for each class with cases the intercept
// ln w(k) - 0.5 slope xmean(k) in column 1 and the slope xmean(k) / mse in
// column 2; classes without cases keep 0. When mse is at or below kTiny the
// variance of x over all cases is used instead; returns false (coef all 0)
// when that too is at or below kTiny.
#pragma once

#include <span>

#include "numerics/farray.hpp"

namespace vardel {

bool ldfuni(std::span<const double> x, double mse, std::span<const double> xmean,
            std::span<const double> w, std::span<const int> noc, FArray<double>& coef);

}  // namespace vardel
