#include "prune/prune_tree.hpp"

#include "prune/alpha_seq.hpp"
#include "prune/cv_prune.hpp"
#include "prune/prune_arrays.hpp"

namespace vardel {

void prune_tree(const FArray<double>& x, const FArray<int>& y, const FArray<char>& mis) {
  alpha_seq(0);
  if (prune_arrays().nonempty_terminal == 1) return;
  cv_prune(x, y, mis);
}

}  // namespace vardel
