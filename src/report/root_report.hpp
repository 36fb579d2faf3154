// The smallest tree there is: the root node's class and misclassification
// cost under the run's priors and costs, appended to the output file, for a
// run whose settings ask for routines this build lacks (named by `missing`).
#pragma once

namespace vardel {

void report_root_node(const char* missing);

}  // namespace vardel
