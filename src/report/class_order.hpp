// The order in which reports list the classes, and the width of their labels.
//
// Classes are ranked by the character code of the first letter of each label
// only (indexx_i4b), so labels with the same first letter stay in whatever
// order that ranking leaves them.
#pragma once

#include <string>

#include "numerics/farray.hpp"

namespace vardel {

// indx: positions of the labels of clabel in report order.
FArray<int> class_order(const FArray<std::string>& clabel);

// The largest trimmed length of the labels, and at least 1.
int label_width(const FArray<std::string>& clabel);

}  // namespace vardel
