// PruneArrays (module struct): the node lists and the pruning record of the
// weakest-link sequence, with the routines that fill the node lists.
//
// Node lists, one entry per node of the current tree in preorder, children in
// the order the store lists them: nid, nstat (1 terminal, 0 split), nstattrue
// (0 split, 1 terminal with cases, 2 terminal without), ncost (rt of the
// node), and from fill_cost snodes, scost (terminal count and summed rt below
// a split node) and nalpha (link strength, 0 at a terminal node).
//
// Pruning record, one entry per pruning step: pseq (node pruned), talpha
// (its strength), pnodes (terminal nodes with cases left). After compression
// talpha and pnodes hold one entry per distinct subtree in their first
// nsubtrees places; talpha0, pnodes0, nomit, pseq0 and palpha keep the
// sequence for rebuilding subtree s (see replay_subtree).
//
// All lists are 0-based vectors; the routines read them through 1-based
// views. There is one instance, reached through prune_arrays().
#pragma once

#include <vector>

namespace vardel {

struct PruneArrays {
  std::vector<int> nid, nstat, nstattrue;
  std::vector<double> ncost, nalpha, scost;
  std::vector<int> snodes;

  std::vector<int> pseq, pnodes;  // per pruning step
  std::vector<double> talpha;

  std::vector<double> talpha0, palpha;  // compressed, kept for rebuilding
  std::vector<int> pnodes0, nomit, pseq0;

  int nsubtrees = 0;          // compressed subtrees; subtree 0 is the largest tree
  int nsteps = 0;             // pruning steps recorded in pseq0
  int count = 0;              // entries of the node lists
  int nonempty_nodes = 0;     // nodes with cases in the largest tree
  int nonempty_terminal = 0;  // terminal nodes with cases in the largest tree

  void reset() { *this = PruneArrays{}; }
};

PruneArrays& prune_arrays();

// Appends the subtree of node to the node lists in preorder, starting after
// the first `count` entries, and advances count. Set count to 0 before the
// walk from the root. An unknown node appends nothing.
void fill_arrays(int node);

// Empties the node lists and fills them from the root.
void refill_arrays();

// snodes, scost and nalpha from the node lists.
void fill_cost();

// Removes the K children of node t with whatever lies below them, child K
// first when descending, child 1 first otherwise. Absent children are skipped.
void prune_children(int t, bool descending);

}  // namespace vardel
