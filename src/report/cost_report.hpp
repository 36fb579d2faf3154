// The cost report: estimated misclassification costs of the final tree,
// appended to the output file (init().outfile) after the tree report.
//
// cost_info writes the resubstitution classification matrix of the tree in
// the store, its cost and standard error, and, for a pruned tree
// (treesize 1), the cost and SE kept from pruning (init().prunecost,
// init().prunese). With a test sample (testtype 2) it pours init().xtest
// through the tree (imputed values stay in it), writes the prediction file
// when init().wantpredict is 2, and reports the test sample's matrix, cost
// and SE, or those of predicting every case as one class when that costs
// strictly less. Written for split types 1 and 2; the store is only read.
//
// resub_tree adds the learning cases of the subtree of node t to table
// (K by K, indexed (predicted class, true class)): each terminal node with a
// class adds its class counts to the row of that class; a terminal node
// without a class (iclass 0) adds nothing.
#pragma once

#include "numerics/farray.hpp"
#include "report/table_cost.hpp"

namespace vardel {

void cost_info();

void resub_tree(int t, FArray<int>& table);

// Cost and SE of a resubstitution table, with the learning class counts
// init().noc, the priors init().prob and the costs init().cost.
CostAndSe resubstitution_cost(const FArray<int>& table);

}  // namespace vardel
