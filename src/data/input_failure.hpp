// The end of a run on a read that has no message of its own: a value that is
// not a number where a number must stand, or a file that ends too early.
// Writes one line naming the file, the item and the line, and ends the run
// with a non-zero status.
#pragma once

#include <string_view>

#include "numerics/list_reader.hpp"

namespace vardel {

[[noreturn]] void input_failure(std::string_view file, std::string_view item,
                                const ReadResult& result);

}  // namespace vardel
