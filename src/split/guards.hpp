// Marker values and small constants shared by the split-point routines.
//
// A split-point array has K - 1 slots for K classes. A slot not in use holds
// one of the two guard values; a point is real when it lies strictly between
// them. kTiny and kEps guard the divisions and logarithms of these routines.
#pragma once

namespace vardel {

// Split point not in use, below every value (the most negative double).
inline constexpr double kLowGuard = -1.7976931348623157e+308;
// Split point not in use, above every value (the largest double).
inline constexpr double kHighGuard = 1.7976931348623157e+308;
// Least positive normal double: a variance at or below it counts as zero.
inline constexpr double kTiny = 2.2250738585072014e-308;
// Double precision epsilon: shifted values below it are moved off zero, and
// slopes closer than it count as parallel.
inline constexpr double kEps = 2.220446049250313e-16;

inline bool is_real_point(double c) {
  return c > kLowGuard && c < kHighGuard;
}

}  // namespace vardel
