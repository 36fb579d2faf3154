// Box-Cox transformation of one variable at a node.
//
// boxcox moves x onto the positive half-line (x - shift), then walks a grid of
// powers from the lower end and keeps the last power before the first one
// that does not lower the criterion ln(v) - (2 / n) p sum(ln x), where v is
// the within-class sum of squares of the transformed values divided by n.
//
// In: x (n values), ydat (class 1..K of each case), noc (K case counts), mse
// (the within-class mean square of x), xmean (K class means of x), varsel
// (2: six powers from -2 to 2 in steps of 0.8; 1: eleven powers from -2 to 2).
// Out: x transformed in place, xmean the class means on the new scale (classes
// without cases keep theirs), mse = v on the new scale; returns the power and
// the shift. When mse is below kTiny the power is 1 with shift 0 (x - 1), and
// mse is left as it is.
#pragma once

#include <span>

namespace vardel {

struct BoxCoxResult {
  double lambda;  // power chosen
  double shift;   // amount subtracted from x before the power
};

BoxCoxResult boxcox(std::span<double> x, std::span<const int> ydat, double& mse,
                    std::span<double> xmean, std::span<const int> noc, int varsel);

}  // namespace vardel
