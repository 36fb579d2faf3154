// The printed table of subtree costs: one row per subtree 0..nsubtrees with
// its estimated cost, SE and number of terminal nodes, the 0-SE tree marked
// "*" and the given-SE tree "**" (a tree that is both shows "*"), then the
// key. write_cv_table prints it with the cross-validation titles;
// write_subtree_cost_table takes the two title lines (test-sample pruning).
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

struct CostTableHead {
  const char* title;    // the line naming the estimate
  const char* columns;  // the column titles
};

void write_subtree_cost_table(std::ostream& out, const CostTableHead& head,
                              const std::vector<SubtreeCost>& costs, const TreeChoice& choice,
                              int largest_terminal, std::span<const int> pnodes0);

}  // namespace vardel
