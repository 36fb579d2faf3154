// prune_tree: the pruning of the largest tree.
//
// Builds and prints the weakest-link sequence of subtrees, then, unless the
// tree has a single terminal node with cases, chooses one subtree by
// cross-validation (init().prunetype 1) or with the test sample (otherwise)
// and leaves it in the store.
#pragma once

#include "numerics/farray.hpp"

namespace vardel {

void prune_tree(const FArray<double>& x, const FArray<int>& y, const FArray<char>& mis);

}  // namespace vardel
