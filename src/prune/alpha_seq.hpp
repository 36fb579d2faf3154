// alpha_seq: the weakest-link pruning sequence of the tree in the store.
//
// Prunes the tree one split node at a time, always the one with the smallest
// link strength (the smaller number among exact ties), until the root alone
// is left; records the steps in prune_arrays(), merges steps whose strengths
// differ by no more than the double epsilon into one subtree, and appends the
// table of subtrees to the run's output file.
//
// flag 0 also keeps the compressed sequence (pseq0, talpha0, pnodes0, palpha)
// and prints the table rows; any other flag writes only the table head.
// Sets init().nodesmax to the nodes with cases of the largest tree. A tree
// that is the root alone prints the head only and leaves the record as it was.
#pragma once

namespace vardel {

void alpha_seq(int flag);

}  // namespace vardel
