// Cross-validation cost and SE of each subtree, and the choice of tree.
//
// subtree_costs: from the class tables summed over the folds, the
// misclassification cost of each subtree 0..nsubtrees and its standard
// error. nobs is the number of learning cases, noc the class totals of the
// whole learning sample, cost(i, j) the cost of predicting i for class j,
// prob the run's priors (not read under the estimated prior option 2).
//
// choose_tree: the 0-SE tree (least cost, a tie going to the later, smaller
// tree) and the given-SE tree (the smallest tree whose cost is within
// serule SEs of the 0-SE tree's). When the first pruning step costs nothing
// (talpha0_1 about zero), the largest tree's cost is first raised above
// subtree 1's so that it cannot be chosen; that raised cost is kept in costs.
#pragma once

#include <vector>

#include "numerics/farray.hpp"
#include "prune/class_tables.hpp"

namespace vardel {

struct SubtreeCost {
  double total = 0.0;  // CV R(t)
  double se = 0.0;     // its SE
};

struct TreeChoice {
  int zero_se = 0;   // subtree index of the 0-SE tree
  int given_se = 0;  // ... and of the given-SE tree
};

// Element s is subtree s, s = 0..nsubtrees.
std::vector<SubtreeCost> subtree_costs(const ClassTables& table, const FArray<double>& cost,
                                       int priortype, const FArray<double>& prob,
                                       const FArray<int>& noc, int nobs);

TreeChoice choose_tree(std::vector<SubtreeCost>& costs, double talpha0_1, double serule);

}  // namespace vardel
