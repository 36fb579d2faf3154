// Fixed-length text items.
//
// Names, labels and tokens are held as blank-padded text of a declared
// length. These helpers cut or pad to a length, strip trailing blanks, move
// leading blanks to the end, and compare two items as if the shorter were
// padded with blanks.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace vardel {

// s cut to its first len characters, or blank-padded on the right to len.
std::string fixed_text(std::string_view s, std::size_t len);

// s without its trailing blanks (leading blanks stay).
std::string_view trim(std::string_view s);

// s with its leading blanks moved to the end; the length is unchanged.
std::string adjustl(std::string_view s);

// True when a and b are equal once the shorter is blank-padded to the longer.
bool text_equal(std::string_view a, std::string_view b);

// The pieces one after the other: formats built at run time from literal
// parts and numbers, e.g. join_text({"(", std::to_string(w), "x,a)"}).
std::string join_text(std::initializer_list<std::string_view> pieces);

}  // namespace vardel
