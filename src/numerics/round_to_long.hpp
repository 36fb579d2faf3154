// round_to_long: std::lround with a fast path for values that are whole
// numbers already, such as category codes (the common case by far).
#pragma once

#include <cmath>

namespace vardel {

inline long round_to_long(double x) {
  // Guards the cast: whole doubles of this size convert exactly.
  constexpr double kExactRange = 4.0e15;
  if (x >= -kExactRange && x <= kExactRange) {  // false for NaN
    const long whole = static_cast<long>(x);
    if (static_cast<double>(whole) == x) return whole;
  }
  return std::lround(x);
}

}  // namespace vardel
