// Progress lines of the cross-validation fold loop, on standard output:
// a notice before the first fold, one dot per fold (a new row after every
// 50th), and the end of the last row.
#pragma once

namespace vardel {

void cv_progress_start(int folds);
void cv_progress_dot(int fold);
void cv_progress_end();

}  // namespace vardel
