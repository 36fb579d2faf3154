// Decimal digits of doubles through std::to_chars, which rounds the exact
// binary value correctly (ties to even).
#include "numerics/decimal_digits.hpp"

#include <charconv>
#include <cstdlib>
#include <stdexcept>

namespace vardel {

Decimal significant_digits(double ax, int n) {
  // Scientific form "d.ddde+XX" (no point when n is 1).
  char buf[kMaxDigits + 16];
  auto res = std::to_chars(buf, buf + sizeof buf, ax, std::chars_format::scientific, n - 1);
  if (res.ec != std::errc{}) throw std::logic_error("significant_digits: buffer too small");
  Decimal dec;
  const char* p = buf;
  for (; p < res.ptr && *p != 'e'; ++p)
    if (*p != '.') dec.digits[dec.n++] = *p;
  int e = 0;
  std::from_chars(p + 1 + (p[1] == '+' ? 1 : 0), res.ptr, e);
  dec.exp10 = e + 1;
  return dec;
}

std::string_view fixed_digits(double ax, int d, char (&buf)[kFixedBuffer]) {
  auto res = std::to_chars(buf, buf + kFixedBuffer, ax, std::chars_format::fixed, d);
  if (res.ec != std::errc{}) throw std::logic_error("fixed_digits: buffer too small");
  return std::string_view(buf, static_cast<std::size_t>(res.ptr - buf));
}

}  // namespace vardel
