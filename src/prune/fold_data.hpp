// The data of one cross-validation fold.
//
// select_prune_cv_data splits the sample by fold: walking the cases in
// order, a case whose fold mcv is not `fold` goes to the learning part and
// one whose fold is `fold` to the test part, both keeping case order.
// Inputs: x and mis are nobs by P, y holds nobs classes. The learning part
// comes with a node number of 1 for every case, ready for growth.
//
// fold_priors gives the priors of a fold's learning part: with the estimated
// prior option (2) the class proportions of that part, otherwise the run's
// priors unchanged.
#pragma once

#include <span>

#include "numerics/farray.hpp"

namespace vardel {

struct FoldData {
  // Learning part: cases whose fold is not the one left out.
  FArray<double> x;      // nlearn by P
  FArray<int> y;         // nlearn classes
  FArray<char> mis;      // nlearn by P, 'y' missing
  FArray<int> termnode;  // nlearn node numbers, all 1
  // Test part: the cases of the fold left out.
  FArray<double> xcv;  // ntest by P
  FArray<int> ycv;     // ntest classes
  FArray<char> miscv;  // ntest by P

  int nlearn() const { return static_cast<int>(y.size()); }
  int ntest() const { return static_cast<int>(ycv.size()); }
};

// Cases whose fold is not `fold`.
int fold_learning_count(int fold, std::span<const int> mcv);

FoldData select_prune_cv_data(int fold, std::span<const int> mcv, const FArray<double>& x,
                              std::span<const int> y, const FArray<char>& mis);
// The two parts alone: the learning part (with its node numbers) in a new
// FoldData, the test part into d, so that a fold need not hold both at once.
FoldData select_fold_learning(int fold, std::span<const int> mcv, const FArray<double>& x,
                              std::span<const int> y, const FArray<char>& mis);
// The same into d, whose learning tables' storage is reused when large enough.
void select_fold_learning(int fold, std::span<const int> mcv, const FArray<double>& x,
                          std::span<const int> y, const FArray<char>& mis, FoldData& d);
void select_fold_test(int fold, std::span<const int> mcv, const FArray<double>& x,
                      std::span<const int> y, const FArray<char>& mis, FoldData& d);

// y: classes 1..nclass of the learning part; run_prob: the run's priors.
FArray<double> fold_priors(int priortype, std::span<const int> y, int nclass,
                           const FArray<double>& run_prob);

}  // namespace vardel
