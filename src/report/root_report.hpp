// The smallest tree there is: the root node's class and misclassification
// cost under the run's priors and costs, appended to the output file.
#pragma once

namespace vardel {

void report_root_node();

}  // namespace vardel
