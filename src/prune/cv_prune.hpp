// Cross-validation pruning: the choice of one subtree of the pruning
// sequence.
//
// cv_prune grows a tree on each fold's learning part, pours the fold's
// left-out cases through it pruned to match each subtree of the sequence,
// sums the class tables, prints the cost and SE of each subtree, keeps the
// chosen tree's cost and SE in the run settings, and leaves the chosen
// subtree of the largest tree in the store.
//
// cv_test fills a fold's tables for the tree in the store: subtree 0 is the
// fold's whole tree; for subtree k its weakest links are cut while their
// strength is within the sequence's palpha(k).
#pragma once

#include <span>

#include "numerics/farray.hpp"
#include "prune/class_tables.hpp"

namespace vardel {

void cv_prune(const FArray<double>& x, const FArray<int>& y, const FArray<char>& mis);

void cv_test(FArray<double>& xcv, std::span<const int> ycv, const FArray<char>& miscv,
             ClassTables& q);

}  // namespace vardel
