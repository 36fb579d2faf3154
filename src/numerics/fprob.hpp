// fprob: tail probabilities of the F distribution.
//
// For numerator and denominator degrees of freedom ndf, ddf and a value f,
// p is the probability of exceeding f and q = 1 - p. status is 0 on success;
// 1 when either degrees of freedom is 0 or less and 2 when f is negative (or
// not a number), p and q then left untouched; any other value is the failure
// status of the incomplete beta ratio (see inc_beta.hpp), p and q then 0.
#pragma once

namespace vardel {

void fprob(int ndf, int ddf, double f, double& p, double& q, int& status);

}  // namespace vardel
