// Split points back from the Box-Cox scale to the scale of the data.
//
// In: cutpt (points on the transformed scale, guards allowed), lambda and
// shift (from boxcox). Out: cutpt in place, each real point c replaced by
// (c lambda + 1)^(1 / lambda) + shift, or exp(c) + shift for a power within
// kTiny of 0. A point below the range of the power (c lambda + 1 < 0) goes to
// shift, the lower end of the shifted scale; c lambda + 1 = 0 with a negative
// power gives +inf. Guard values are left as they are.
#pragma once

#include <span>

namespace vardel {

void backtran(std::span<double> cutpt, double lambda, double shift);

}  // namespace vardel
