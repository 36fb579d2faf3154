// Fatal checks shared by the numerical routines.
//
// nrerror(text) writes the text and ends the run; assert_eq2(n1, n2, tag)
// ends the run, naming tag, when two array sizes differ. Both write to
// std::cout and stop with status 1.
#pragma once

#include <cstddef>
#include <string_view>

namespace vardel {

[[noreturn]] void nrerror(std::string_view text);

// Returns n1 when n1 == n2; otherwise reports tag and stops the run.
std::size_t assert_eq2(std::size_t n1, std::size_t n2, std::string_view tag);

}  // namespace vardel
