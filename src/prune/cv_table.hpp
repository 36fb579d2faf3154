// The printed table of cross-validation costs: one row per subtree 0..nsubtrees
// with its CV cost, SE and number of terminal nodes, the 0-SE tree marked "*"
// and the given-SE tree "**" (a tree that is both shows "*"), then the key.
//
// largest_terminal: non-empty terminal nodes of the largest tree (row 0);
// pnodes0[s - 1]: terminal nodes of subtree s, s = 1..nsubtrees.
#pragma once

#include <iosfwd>
#include <span>
#include <vector>

#include "prune/cv_costs.hpp"

namespace vardel {

void write_cv_table(std::ostream& out, const std::vector<SubtreeCost>& costs,
                    const TreeChoice& choice, int largest_terminal, std::span<const int> pnodes0);

}  // namespace vardel
