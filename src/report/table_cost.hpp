// Estimated misclassification cost of a classification table, and its
// standard error.
//
// table is K by K, indexed (predicted class, true class). counts(j) is the
// number of cases of true class j the table was made from, prob(j) its prior
// and cost(i, j) the cost of predicting i for class j. With
//   T1(j) = sum over i of cost(i, j) table(i, j),
//   T2(j) = sum over i of cost(i, j)**2 table(i, j),
//   N(j)  = counts(j):
//   cost = sum over j of prob(j) T1(j) / N(j)
//   se   = sqrt(sum over j of (prob(j)**2 / N(j)) (T2(j) / N(j) - (T1(j) / N(j))**2))
// Sums run over the classes in order 1..K from 0.0. A class with N(j) = 0
// gives a division by zero; callers with possibly empty classes screen them.
#pragma once

#include "numerics/farray.hpp"

namespace vardel {

struct CostAndSe {
  double cost = 0.0;
  double se = 0.0;
};

CostAndSe table_cost(const FArray<int>& table, const FArray<int>& counts,
                     const FArray<double>& prob, const FArray<double>& cost);

}  // namespace vardel
