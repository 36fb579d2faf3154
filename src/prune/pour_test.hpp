// Pouring: sends every case of a table down the tree in the store and counts
// predicted against true classes.
//
// pour_test
//   x      n by P case table; values imputed for missing split variables are
//          written into it and stay there
//   y      class codes; codes outside 1..K are counted nowhere
//   mis    n by P, 'y' for a missing value, 'n' for a present one
//   table  out: K by K counts, table(predicted, true); every entry is
//          overwritten, except that the table is left as it was when the walk
//          meets a node number that is not in the store (the pour then ends
//          silently at that case)
// The tree itself is never changed. K and P come from init().
//
// land_case walks one case and tells where it ends. The split type of the run
// chooses the walk; only the univariate walk (split type 1) is built so far.
// pour_test decodes the tree once (PourTree) and walks every case on it.
#pragma once

#include <optional>
#include <span>

#include "numerics/farray.hpp"
#include "prune/node_walk.hpp"
#include "prune/pour_tree.hpp"

namespace vardel {

void pour_test(FArray<int>& table, FArray<double>& x, std::span<const int> y,
               const FArray<char>& mis, int n);

// table(predicted, true) from the predicted classes py of the cases with
// true classes y: every entry overwritten, codes outside 1..K counted nowhere.
void tally_classes(FArray<int>& table, std::span<const int> y, const FArray<int>& py, int nclass);

// Walks case `row` of x from the root. nullopt when a node on its way is not
// in the store. The first form decodes the tree in the store for this one case.
std::optional<Landing> land_case(FArray<double>& x, const FArray<char>& mis, int row,
                                 PourWork& work);
std::optional<Landing> land_case(const PourTree& tree, FArray<double>& x, const FArray<char>& mis,
                                 int row, PourWork& work);

}  // namespace vardel
