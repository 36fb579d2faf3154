// Robust locally weighted regression smoother (Cleveland's lowess).
//
// lowess smooths the scatterplot (x(i), y(i)), i = 1..n, x sorted ascending.
// Each fitted value is a straight line fitted by weighted least squares to
// the nearest max(2, floor(f * n)) points, with tricube weights in distance.
// nsteps robustness steps follow, each refitting with the neighbourhood
// weights multiplied by bisquare weights of the previous residuals (scaled
// by six times their median absolute value). Points within delta of the last
// point fitted are not fitted but interpolated linearly (delta = 0 fits
// every point). On return ys holds the fitted values, res the residuals
// y - ys, and rw the robustness weights of the last step that computed
// them (rw is also used as scratch). All arrays have n entries.
//
// lowest computes the fit ys at the single point xs, from the points
// nleft..nright (1-based) and any ties beyond nright. w is scratch for the
// weights. When userw is set the weights are multiplied by rw. ok is false,
// and ys untouched, when every weight is zero.
#pragma once

#include <span>

namespace vardel {

void lowess(std::span<const double> x, std::span<const double> y, int n, double f, int nsteps,
            double delta, std::span<double> ys, std::span<double> rw, std::span<double> res);

void lowest(std::span<const double> x, std::span<const double> y, int n, double xs, double& ys,
            int nleft, int nright, std::span<double> w, bool userw, std::span<const double> rw,
            bool& ok);

}  // namespace vardel
