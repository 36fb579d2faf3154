// Integer from a fixed-width field, blanks ignored (see read_int_field.hpp).
#include "numerics/read_int_field.hpp"

#include <cstdint>
#include <limits>

namespace vardel {

ReadResult read_int_field(std::string_view field, int& value) {
  // Magnitude limit: the size of the most negative int.
  constexpr std::int64_t kLimit = std::int64_t{std::numeric_limits<int>::max()} + 1;
  bool negative = false, sign_seen = false, digit_seen = false, bad = false;
  std::int64_t mag = 0;
  for (char c : field) {
    if (c == ' ') continue;
    if (!sign_seen && !digit_seen && (c == '+' || c == '-')) {
      sign_seen = true;
      negative = c == '-';
    } else if (c >= '0' && c <= '9') {
      digit_seen = true;
      mag = mag * 10 + (c - '0');
      if (mag > kLimit) bad = true;
    } else {
      bad = true;
    }
    if (bad) break;
  }
  if (sign_seen && !digit_seen) bad = true;  // a sign alone
  if (mag > (negative ? kLimit : kLimit - 1)) bad = true;

  ReadResult r;
  r.line = 1;
  if (bad) {
    r.status = ReadStatus::bad_value;
    r.token.assign(field);
    return r;
  }
  value = static_cast<int>(negative ? -mag : mag);
  return r;
}

}  // namespace vardel
