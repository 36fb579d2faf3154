// Conversion of free-form input tokens to integers and reals (see list_number.hpp).
#include "numerics/list_number.hpp"

#include <charconv>
#include <cstddef>
#include <limits>
#include <string>
#include <system_error>

namespace vardel {
namespace {

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

char lower(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

bool equals_nocase(std::string_view s, std::string_view lower_word) {
  if (s.size() != lower_word.size()) return false;
  for (std::size_t i = 0; i < s.size(); ++i)
    if (lower(s[i]) != lower_word[i]) return false;
  return true;
}

// Exponents are accumulated up to this size and no further: anything larger
// already overflows or underflows every floating type, and capping it keeps
// the accumulator from wrapping on absurdly long exponents.
constexpr long long kExponentCap = 100000000;

// inf, infinity, nan, nan(tag), without the sign.
template <class T>
bool parse_special(std::string_view s, bool negative, T& out) {
  if (equals_nocase(s, "inf") || equals_nocase(s, "infinity")) {
    out = negative ? -std::numeric_limits<T>::infinity() : std::numeric_limits<T>::infinity();
    return true;
  }
  bool is_nan = equals_nocase(s, "nan");
  if (!is_nan && s.size() >= 5 && equals_nocase(s.substr(0, 4), "nan(") && s.back() == ')')
    is_nan = s.substr(4, s.size() - 5).find(')') == std::string_view::npos;
  if (!is_nan) return false;
  out = negative ? -std::numeric_limits<T>::quiet_NaN() : std::numeric_limits<T>::quiet_NaN();
  return true;
}

template <class T>
bool parse_real(std::string_view tok, T& out) {
  const std::size_t n = tok.size();
  std::size_t i = 0;
  bool negative = false;
  if (i < n && (tok[i] == '+' || tok[i] == '-')) {
    negative = tok[i] == '-';
    ++i;
  }
  if (i == n) return false;
  if (!is_digit(tok[i]) && tok[i] != '.') return parse_special(tok.substr(i), negative, out);

  // Mantissa: digits [. digits]
  const std::size_t int_begin = i;
  while (i < n && is_digit(tok[i])) ++i;
  const std::size_t int_end = i;
  std::size_t frac_begin = i, frac_end = i;
  if (i < n && tok[i] == '.') {
    frac_begin = ++i;
    while (i < n && is_digit(tok[i])) ++i;
    frac_end = i;
  }

  // Exponent: letter [sign] digits, or sign digits.
  long long exponent = 0;
  if (i < n) {
    const char c = lower(tok[i]);
    if (c == 'e' || c == 'd' || c == 'q') {
      ++i;
    } else if (c != '+' && c != '-') {
      return false;
    }
    bool exp_negative = false;
    if (i < n && (tok[i] == '+' || tok[i] == '-')) {
      exp_negative = tok[i] == '-';
      ++i;
    }
    const std::size_t exp_begin = i;
    for (; i < n && is_digit(tok[i]); ++i)
      if (exponent < kExponentCap) exponent = exponent * 10 + (tok[i] - '0');
    if (i == exp_begin || i != n) return false;
    if (exp_negative) exponent = -exponent;
  }

  if (int_begin == int_end && frac_begin == frac_end) {
    out = T(0);
    return false;
  }

  // Decimal position of the leading significant digit, to tell overflow from
  // underflow when the conversion falls outside the range.
  long long lead = 0;
  bool nonzero = false;
  for (std::size_t k = int_begin; k < int_end && !nonzero; ++k)
    if (tok[k] != '0') {
      lead = static_cast<long long>(int_end - k);
      nonzero = true;
    }
  for (std::size_t k = frac_begin; k < frac_end && !nonzero; ++k)
    if (tok[k] != '0') {
      lead = -static_cast<long long>(k - frac_begin);
      nonzero = true;
    }
  if (!nonzero) {
    out = negative ? -T(0) : T(0);
    return true;
  }

  // Rewrite as digits.digits e exponent, the one form from_chars takes.
  std::string buf;
  buf.reserve((int_end - int_begin) + (frac_end - frac_begin) + 24);
  buf.append(tok.substr(int_begin, int_end - int_begin));
  if (int_begin == int_end) buf.push_back('0');
  buf.push_back('.');
  buf.append(tok.substr(frac_begin, frac_end - frac_begin));
  if (frac_begin == frac_end) buf.push_back('0');
  buf.push_back('e');
  char exp_text[24];
  const auto er = std::to_chars(exp_text, exp_text + sizeof exp_text, exponent);
  buf.append(exp_text, er.ptr);

  T value{};
  const auto r = std::from_chars(buf.data(), buf.data() + buf.size(), value);
  if (r.ec == std::errc::result_out_of_range) {
    value = (lead + exponent > 0) ? std::numeric_limits<T>::infinity() : T(0);
  } else if (r.ec != std::errc{} || r.ptr != buf.data() + buf.size()) {
    return false;
  }
  out = negative ? -value : value;
  return true;
}

}  // namespace

bool parse_list_integer(std::string_view tok, std::int64_t lo, std::int64_t hi, std::int64_t& out) {
  std::size_t i = 0;
  bool negative = false;
  if (i < tok.size() && (tok[i] == '+' || tok[i] == '-')) {
    negative = tok[i] == '-';
    ++i;
  }
  if (i == tok.size()) return false;
  // Magnitude limit: one past the largest int64, the size of the most negative.
  constexpr std::uint64_t kLimit = std::uint64_t{1} << 63;
  std::uint64_t mag = 0;
  for (; i < tok.size(); ++i) {
    if (!is_digit(tok[i])) return false;
    const auto digit = static_cast<std::uint64_t>(tok[i] - '0');
    if (mag > (kLimit - digit) / 10) return false;
    mag = mag * 10 + digit;
  }
  std::int64_t v;
  if (negative) {
    v = (mag == kLimit) ? std::numeric_limits<std::int64_t>::min()
                        : -static_cast<std::int64_t>(mag);
  } else {
    if (mag == kLimit) return false;
    v = static_cast<std::int64_t>(mag);
  }
  if (v < lo || v > hi) return false;
  out = v;
  return true;
}

bool parse_list_real(std::string_view tok, double& out) {
  return parse_real(tok, out);
}
bool parse_list_real(std::string_view tok, float& out) {
  return parse_real(tok, out);
}

}  // namespace vardel
