// replay_subtree: the largest tree restored, then pruned along pseq0.
#include "prune/replay.hpp"

#include <span>

#include "numerics/farray.hpp"
#include "prune/prune_arrays.hpp"
#include "tree/tree_store.hpp"

namespace vardel {

void replay_subtree(int s) {
  TreeStore& store = tree_store();
  store.restart();
  store.scratch().rewind();
  store.restore_tree();

  PruneArrays& pa = prune_arrays();
  const FView<const int> pseq0{std::span<const int>(pa.pseq0)};
  const FView<const int> nomit{std::span<const int>(pa.nomit)};
  int e = 1;
  for (int c = 1; c <= s; ++c) {
    for (int r = 0; r <= nomit(c); ++r) {
      // An early single-leaf subtree adds an entry without a step of its own,
      // so the entries can outrun the recorded steps; past them the tree is
      // already at its last subtree.
      if (e <= pa.nsteps) prune_children(pseq0(e), false);
      e += 1;
    }
  }
}

}  // namespace vardel
