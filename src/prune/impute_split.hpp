// The missing-value rule of pouring at a univariate split node.
//
// Case `row` of the case table x lacks the node's split variable var. The
// rule chosen by init().impprune either imputes a value, written into
// x(row, var) where it stays for later nodes and pours (the 'y' mark stays
// too, so each node that needs the value imputes it afresh), or, under
// "Go down if possible", ends the case at this inner node.
//
//   1, 3  the mean or mode of the node's largest class (ranked by indexx)
//   2     grand(var) of the record
//   4     no value: the case stops here
//   5, 6  the mean or mode of the class that the node's alternate variable
//         predicts, when that variable is present in the case; otherwise as 3
// Any other setting leaves the value as found.
#pragma once

#include "numerics/farray.hpp"
#include "prune/node_walk.hpp"

namespace vardel {

// y: record of the split node. Returns false when the case stops at the node.
bool impute_split_value(const FView<double>& y, FArray<double>& x, const FArray<char>& mis, int row,
                        int var, PourWork& work);

}  // namespace vardel
