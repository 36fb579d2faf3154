// catsplit: the category lists of a split on a categorical variable.
//
// Inputs: a, the coordinate of each of the C categories (crim1 and its
// siblings); cutpt, the K - 1 cut points on the coordinate, ascending, a slot
// not in use holding a guard value.
// Outputs: cutcat1 (reshaped to C) the category codes ordered by ascending
// coordinate, equal coordinates in the order indexx gives them; ncutcat
// (reshaped to K) the number of codes going to each subnode, so that subnode
// k takes the next ncutcat(k) codes of cutcat1. Subnode k < K takes the codes
// whose coordinate is at or below cutpt(k) and not already taken; subnode K
// takes the rest. A guard cut point takes all or none of the codes, as the
// comparison gives. Every code gets a subnode, also one without cases in the
// node (its coordinate is 0).
#pragma once

#include <span>

#include "numerics/farray.hpp"

namespace vardel {

void catsplit(std::span<const double> a, std::span<const double> cutpt, FArray<int>& ncutcat,
              FArray<int>& cutcat1);

}  // namespace vardel
