// string_sort: sorts fixed-width texts in place, ascending.
//
// Input: texts, each compared on its first `width` characters as if padded
// with blanks to that width (character codes as unsigned). Output: the same
// texts, reordered. An insertion sort: each text goes in front of the first
// earlier text that is greater than it, so equal texts keep their order.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace vardel {

void string_sort(std::span<std::string> texts, std::size_t width);

}  // namespace vardel
