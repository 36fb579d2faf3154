// Test-sample pruning: the choice of one subtree of the pruning sequence with
// the test sample (init().xtest, ytest, misindtest; ntest cases).
//
// test_prune restores the largest tree from the scratch file and pours the
// test sample through it and through each subtree of the kept sequence in
// turn, pruning as it goes. The 0-SE tree has the least test cost (a tie goes
// to the later, smaller tree; when the first pruning step costs nothing the
// largest tree is left out and its cost printed raised above subtree 1's);
// the given-SE tree is the smallest whose cost is within init().serule SEs
// of it. Appends the table of costs to the output file, keeps the given-SE
// tree's cost and SE in init().prunecost and init().prunese, and leaves that
// subtree in the store.
//
// pour_test_prune pours the test sample through the tree in the store and
// returns its test cost and variance (test_cost). Missing values met on the
// way are imputed into init().xtest and stay there.
#pragma once

#include "prune/test_cost.hpp"

namespace vardel {

void test_prune();

TestCost pour_test_prune();

}  // namespace vardel
