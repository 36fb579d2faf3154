// Correctly rounded decimal digits of a double.
//
// significant_digits(ax, n) rounds ax (finite, > 0) to n significant decimal
// digits, ties to even on the exact binary value, and returns them as
// 0.d1d2...dn x 10**exp10. fixed_digits(ax, d, buf) writes ax (finite, >= 0)
// rounded to d decimals as "int.frac" ("int" alone when d is 0).
#pragma once

#include <string_view>

namespace vardel {

// Upper bound on the digits one edit asks for; formats asking for more are
// rejected when they are parsed.
inline constexpr int kMaxDigits = 100;

struct Decimal {
  int n = 0;      // number of digits
  int exp10 = 0;  // value = 0.digits * 10**exp10
  char digits[kMaxDigits + 1] = {};
};

Decimal significant_digits(double ax, int n);

// Room for the integer part of the largest double (309 digits), a point and
// kMaxDigits decimals.
inline constexpr int kFixedBuffer = 320 + kMaxDigits;
std::string_view fixed_digits(double ax, int d, char (&buf)[kFixedBuffer]);

}  // namespace vardel
