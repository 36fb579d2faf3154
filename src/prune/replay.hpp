// replay_subtree: rebuilds subtree s of the kept pruning sequence.
//
// Loads the largest tree again from the start of the scratch file (where it
// was dumped after growth), replacing whatever the store holds, then applies
// the compressed entries 1 to s: entry c prunes nomit(c) + 1 nodes of pseq0,
// children 1 to K. Subtree 0 is the largest tree. The node lists of
// prune_arrays() are left as they were.
#pragma once

namespace vardel {

void replay_subtree(int s);

}  // namespace vardel
