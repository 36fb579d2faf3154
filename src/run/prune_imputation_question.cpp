// The question for the imputation of missing values in the pruning sample
// (test sample or cross-validation folds): sets impprune, or ends the
// dialogue early when there is nothing to prune with and no missing test value.
#include "numerics/format.hpp"
#include "run/dialogue_steps.hpp"
#include "run/init.hpp"

namespace vardel {

bool ask_prune_imputation(AnswerLog& log) {
  Init& in = init();
  in.impprune = 0;
  if (in.testtype == 3 && in.treesize != 1) return true;
  if (in.misstest != 'y' && in.misslearn != 'y') return true;
  if (in.testtype == 2 && in.misstest == 'n' && (in.prunetype == 2 || in.treesize == 2))
    return false;

  if (in.splitsel == 2) {
    in.impprune = 2;
    return true;
  }
  choice_lines({"  Missing values are found in pruning (test or cross-validation) sample"});
  if (in.splittype == 1 || in.splittype == 2) {
    choice_lines(
        {"  Choose 1 for Root node imputation", "         2 for Nodewise mean/mode imputation",
         "         3 for Estimate the class and impute", "         4 for Go down if possible",
         "         5 for Alternate Split", "         6 for Proxy Split"});
    in.impprune = ask_choice(5, 1, 6);
    log.choice(in.impprune);
  } else {
    choice_lines({"  Choose 1 for nodewise imputation,", "         2 for global imputation"});
    const int answer = ask_choice(1, 1, 2);
    log.choice(answer);
    // Stored in the codes of the six-way menu: nodewise is 2, global (root node) is 1.
    in.impprune = answer == 1 ? 2 : 1;
  }
  return true;
}

}  // namespace vardel
