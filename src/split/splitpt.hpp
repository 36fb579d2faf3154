// Split points on the upper envelope of the class discriminant lines, and the
// assignment of cases to the subnodes they mark.
//
// Subnode m (1..K - 1) takes the cases with cutpt(m - 1) < x <= cutpt(m); the
// last subnode K takes the rest. A point not in use holds kLowGuard or
// kHighGuard (split/guards.hpp).
//
// splitpt: in coef (K by 2, intercept and slope of each class's line, from
// ldfuni), x (n values on the scale of the lines), noc (K case counts), ydat
// (class of each case). Out cutpt (K - 1 points, ascending) and py (subnode
// 1..K of each case). The points are the crossings on the upper envelope of
// the lines of the classes with cases. Empty subnodes at either end have
// their points set to the guards; if every case falls in one subnode the
// points become the midpoints of the sorted class means of x; empty
// subnodes left in the middle are merged into their neighbours.
//
// getpy: in cutpt and x, out py, by the same assignment.
#pragma once

#include <span>

#include "numerics/farray.hpp"

namespace vardel {

void splitpt(const FArray<double>& coef, std::span<const double> x, std::span<const int> noc,
             std::span<const int> ydat, std::span<double> cutpt, std::span<int> py);

void getpy(std::span<const double> cutpt, std::span<const double> x, std::span<int> py);

}  // namespace vardel
