// Misclassification cost of a test sample's class table, and its variance.
//
// q is K by K, indexed (predicted class, true class); n is the number of test
// cases. noc(j), the test cases of class j, is the sum of column j of q. With
// c(i, j) = init().cost, T1(j) = sum over i of c(i, j) q(i, j) and T2(j) the
// same with c squared:
//   estimated priors (init().priortype 2):
//     cost     = sum over j of T1(j) / n
//     variance = (sum over j of T2(j) / n - cost**2) / n
//   equal or given priors (1, 3), with prob = init().prob:
//     cost     = A = sum over j of (T1(j) / noc(j)) prob(j)
//     variance = (B - A**2) / n, B the same sum with T2
// Sums run over the classes 1..K from 0.0. A class absent from the sample
// gives a division by zero under priors 1 and 3; the infinity or NaN is
// returned as it is.
#pragma once

#include "numerics/farray.hpp"

namespace vardel {

struct TestCost {
  double cost = 0.0;
  double variance = 0.0;
};

TestCost test_cost(const FArray<int>& q, int n);

// noc: the sums of the columns of q.
FArray<int> column_sums(const FArray<int>& q);

}  // namespace vardel
