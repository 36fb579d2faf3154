// Progress lines of the fold loop (see cv_progress.hpp).
#include "prune/cv_progress.hpp"

#include <iostream>

#include "numerics/format.hpp"

namespace vardel {
namespace {

// Folds shown by one row of dots.
constexpr int kDotsPerRow = 50;

}  // namespace

void cv_progress_start(int folds) {
  write_list(std::cout, {" Cross-validation is executing.  Please wait."});
  if (folds > kDotsPerRow)
    write_list(std::cout, {" (Each row of dots signifies 50 iterations completed.)"});
}

void cv_progress_dot(int fold) {
  std::cout << '.';
  if (fold % kDotsPerRow == 0) std::cout << '\n';
  std::cout.flush();
}

void cv_progress_end() {
  write_list(std::cout, {});
}

}  // namespace vardel
