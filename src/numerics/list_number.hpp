// Conversion of one free-form input token to a number.
//
// Integers: an optional sign and one or more decimal digits, nothing else,
// within the range of the target. Reals: an optional sign, a mantissa of
// digits with an optional decimal point, and an optional exponent written
// with a letter e, d or q (either case) and an optional sign, or with a sign
// alone ("1.0+3" is 1000); also inf, infinity and nan, the last optionally
// followed by a parenthesised tag, in any case. Conversion is correctly
// rounded straight to the target's precision. An exponent beyond the range
// gives infinity or zero, as the value would round.
#pragma once

#include <cstdint>
#include <string_view>

namespace vardel {

// Reads an integer in [lo, hi] from tok; false (out untouched) if tok is not one.
bool parse_list_integer(std::string_view tok, std::int64_t lo, std::int64_t hi, std::int64_t& out);

// Reads a real from tok; false if tok is not one. A token shaped like a real
// whose mantissa has no digits at all ("." or "-.e5") sets out to zero and
// still fails, so that a failed read leaves a zero in that target.
bool parse_list_real(std::string_view tok, double& out);
bool parse_list_real(std::string_view tok, float& out);

}  // namespace vardel
