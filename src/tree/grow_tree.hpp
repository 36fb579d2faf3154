// Growth of one tree from one sample (the learning sample, or the learning
// set of a cross-validation fold).
//
// grow_tree: the cases' predictors x (nobs by P), classes y, missing flags,
// the priors, and the node of each case, all 1 at the start. On return the
// tree is in the store (which the caller has started) and termnode holds
// each case's terminal node. Subtrees grow side by side on the threads of
// the pool, but the store gets the nodes depth first, subnode 1 first, a
// parent before its children, and every node comes out as if the tree had
// been grown in that order; child k of node t is numbered (t - 1) K + k + 1.
#pragma once

#include "numerics/farray.hpp"

namespace vardel {

void grow_tree(const FArray<double>& x, const FArray<int>& y, const FArray<char>& misind,
               const FArray<double>& prob, FArray<int>& termnode);
// As above, for a sample the caller no longer needs: when every case starts
// at the root, growth takes x and misind over instead of a copy. On return
// they hold growth's table storage, its rows in no useful order: a caller
// may reuse it.
void grow_tree(FArray<double>&& x, const FArray<int>& y, FArray<char>&& misind,
               const FArray<double>& prob, FArray<int>& termnode);
// As the first, without a copy of the sample: when every case starts at the
// root, growth borrows x and misind as its table. On return (also when the
// run stops) they are as they were: rows back in case order, filled missing
// cells put back.
void grow_tree_in_place(FArray<double>& x, const FArray<int>& y, FArray<char>& misind,
                        const FArray<double>& prob, FArray<int>& termnode);

}  // namespace vardel
