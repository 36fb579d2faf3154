// Formatted input of an integer from a fixed-width field, as by an Iw or
// Gw.0 edit descriptor.
#pragma once

#include <string_view>

#include "numerics/read_target.hpp"

namespace vardel {

// Reads an integer from field (the caller cuts the field to its width; a
// shorter field counts as padded with blanks). Blanks are ignored wherever
// they stand, so " 1 2" is 12 and an all-blank field is 0. What remains must
// be an optional sign and digits within the 32-bit range; anything else ("3.5",
// "1e3", a tab) is a bad value and leaves value unchanged.
ReadResult read_int_field(std::string_view field, int& value);

}  // namespace vardel
