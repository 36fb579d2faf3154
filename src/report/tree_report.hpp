// The tree report: the final tree written into the output file in three
// views, then its node counts.
//
// print_node_info appends to the output file (init().outfile) a skeleton of
// the splits, the indented tree structure and a detailed table of every node,
// then the numbers of nodes in the largest tree, in the final tree and of its
// terminal nodes; it sets init().nodesfinal and init().nodesterminal and shows
// the terminal count on the screen. The tree store and the run settings are
// only read.
//
// The three walkers write node t and its subtree to out. Classes are listed
// in the order of class_order(); W is the width of the class labels and D the
// number of digits of the largest class count of the learning sample.
//
// Written for univariate splits (split type 1). The skeleton and the
// structure also show linear-combination nodes (split type 2); the rows of
// such a node in the detailed table are not written yet and throw
// std::logic_error, as does any other split type.
#pragma once

#include <iosfwd>

namespace vardel {

void print_node_info();

void skeleton_tree(std::ostream& out, int t);

// width: the larger of W and D.
void format_tree(std::ostream& out, int t, int width);

// Also counts the nodes with a class into init().nodesfinal and the terminal
// nodes into init().nodesterminal.
void print_tree(std::ostream& out, int t, int w, int d);

}  // namespace vardel
