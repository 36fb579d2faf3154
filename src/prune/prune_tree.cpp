#include "prune/prune_tree.hpp"

#include "prune/alpha_seq.hpp"
#include "prune/cv_prune.hpp"
#include "prune/prune_arrays.hpp"
#include "prune/test_prune.hpp"
#include "run/init.hpp"

namespace vardel {

void prune_tree(const FArray<double>& x, const FArray<int>& y, const FArray<char>& mis) {
  alpha_seq(0);
  if (prune_arrays().nonempty_terminal == 1) return;
  if (init().prunetype == 1)
    cv_prune(x, y, mis);
  else
    test_prune();
}

}  // namespace vardel
