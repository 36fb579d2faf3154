// getpjlt: the class probabilities on one side of a candidate split.
//
// Input: counts(k), the side's cases of class k; csize(k), the class counts of
// the sample the tree is grown on; prob(k), the priors. Output pjlt(k), K
// entries summing to 1:
//
//   p(k) = counts(k) / csize(k)                (0 when csize(k) is 0)
//   q(k) = p(k) w(k)
//   pjlt(k) = q(k) / (q(1) + ... + q(K))
//
// where w are the class weights of class_weights(): the priors, or under
// unequal costs (costtype 2, module init) the altered priors
// r(k) = prob(k) (cost(1, k) + ... + cost(K, k)) normalised to sum 1.
//
// A side with no case has every q zero and its pjlt is 0 / 0, a NaN in every
// entry; any impurity made from it is NaN too and compares false, so a split
// with an empty side is never taken as a better split.
//
// getpjlt_weighted is the same with the weights worked out beforehand (the
// split search calls it for every candidate); it writes pjlt into a span of K.
#pragma once

#include <span>

#include "numerics/farray.hpp"

namespace vardel {

FArray<double> class_weights(std::span<const double> prob);

void getpjlt_weighted(std::span<const int> counts, std::span<const int> csize,
                      std::span<const double> weights, std::span<double> pjlt);

FArray<double> getpjlt(std::span<const int> counts, std::span<const int> csize,
                       std::span<const double> prob);

}  // namespace vardel
