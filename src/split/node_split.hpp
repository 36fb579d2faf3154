// What a split routine is given about a node, and what it returns.
//
// NodeSample shows a node's cases (in case order) as rows of growth's table,
// with the class counts and weights growth has worked out. SplitResult is everything
// the node record needs from the split: the variable, the test that chose
// it, the split points or category lists, the subnode of each case, and for
// the alternate-split option the alternate variable's discriminant functions.
#pragma once

#include <functional>

#include "numerics/farray.hpp"
#include "split/class_moments.hpp"

namespace vardel {

struct NodeSample {
  int n = 0;                 // cases in the node
  int m = 0;                 // classes with cases
  FMatrixView<double> xdat;  // n by P predictor values (missing cells filled as growth says)
  FArray<int> ydat;          // n classes 1..K
  FMatrixView<char> misind;  // n by P, 'y' missing
  FArray<int> noc;           // K class counts
  FArray<double> altpr;      // K cost-altered class weights of the node
  FArray<double> prob;       // K priors of the run
  FArray<int> csize;         // K class counts of the sample the tree is grown on
  int nobs = 0;              // cases of that sample
  // The moments over the present values of the node's cases (meanss1), when
  // growth has worked them out already; they do not depend on filled cells.
  const Moments* present_moments = nullptr;
  // Set when growth has left the missing cells unfilled: fills those of one
  // predictor. A routine that reads filled cells of its split variable only
  // calls it with that variable first.
  std::function<void(int)> fill_split_variable;
};

struct SplitResult {
  bool success = true;
  int var = 0;           // split variable, 1..P
  int c = 0;             // its ordinal among the categorical predictors (0: numerical)
  char test = 'F';       // 'F' chosen on the values, 'L' on absolute deviations
  double gmean = 0.0;    // centre of the absolute deviations (the variable's node mean)
  FArray<double> cutpt;  // K - 1 ascending split points with guard values (numerical)
  FArray<int> ncutcat;   // K categories per subnode (categorical)
  FArray<int> cutcat;    // numcat(c) category codes, subnode by subnode (categorical)
  FArray<int> py;        // n subnodes 1..K
  // Alternate split (pruning-sample option 5): the alternate variable, its
  // categorical ordinal, its discriminant functions (K by 2) and its
  // category coordinates.
  int alt_var = 0;
  int c5 = 0;
  FArray<double> coef5;
  FArray<double> crimcord5;
};

}  // namespace vardel
