// Numeric and text editing of single fields: i, f, e, g and a descriptors.
//
// Numbers are laid out as sign, digits and exponent; the leading zero before
// the point of a value below one is dropped when it alone would overflow the
// field. Negative values that round to zero keep their minus sign.
#include "numerics/format_edit.hpp"

#include <cmath>

#include "numerics/decimal_digits.hpp"

namespace vardel {
namespace {

void stars(std::string& out, int w) {
  out.append(static_cast<std::size_t>(w), '*');
}

// Right-justifies the field body in w columns, or fills them with asterisks.
void justify(std::string& out, std::string_view body, int w) {
  if (static_cast<int>(body.size()) > w) return stars(out, w);
  out.append(static_cast<std::size_t>(w) - body.size(), ' ');
  out.append(body);
}

// Infinity and NaN: "Infinity" when it fits, else "Inf"; a minus sign needs
// one more column, and fewer than 3 columns (or "-Inf" in 3) give asterisks.
void edit_nonfinite(std::string& out, double x, int w) {
  if (std::isnan(x)) {
    if (w < 3) return stars(out, w);
    return justify(out, "NaN", w);
  }
  const bool neg = std::signbit(x);
  if (w < 3 || (w == 3 && neg)) return stars(out, w);
  std::string_view body = neg ? (w > 8 ? "-Infinity" : "-Inf") : (w > 7 ? "Infinity" : "Inf");
  justify(out, body, w);
}

// Lays out [-]0.ddd... (or [-].ddd when the zero does not fit and digits
// follow the point): int_part and frac are the digits either side of it.
void fixed_layout(std::string& out, bool neg, std::string_view int_part, std::string_view frac,
                  std::string_view tail, int w) {
  int len = static_cast<int>(neg + int_part.size() + 1 + frac.size() + tail.size());
  if (int_part == "0" && !frac.empty() && len > w) {
    int_part = {};
    --len;
  }
  if (len > w) return stars(out, w);
  out.append(static_cast<std::size_t>(w - len), ' ');
  if (neg) out += '-';
  out.append(int_part);
  out += '.';
  out.append(frac);
  out.append(tail);
}

// 10**n by repeated multiplication: exact up to 10**22.
double power_of_ten(int n) {
  double p = 1.0;
  for (int k = 0; k < n; ++k) p *= 10.0;
  return p;
}

}  // namespace

void edit_integer(std::string& out, std::int64_t v, int w, int m) {
  if (m == 0 && v == 0) {
    out.append(static_cast<std::size_t>(w), ' ');
    return;
  }
  // Magnitude as unsigned so that the most negative value is representable.
  std::uint64_t mag = v < 0 ? 0 - static_cast<std::uint64_t>(v) : static_cast<std::uint64_t>(v);
  char digits[24];
  int n = 0;
  do {
    digits[n++] = static_cast<char>('0' + mag % 10);
    mag /= 10;
  } while (mag != 0);
  const int ndig = m > n ? m : n;
  const int len = ndig + (v < 0 ? 1 : 0);
  if (len > w) return stars(out, w);
  out.append(static_cast<std::size_t>(w - len), ' ');
  if (v < 0) out += '-';
  out.append(static_cast<std::size_t>(ndig - n), '0');
  while (n > 0) out += digits[--n];
}

void edit_fixed(std::string& out, double x, int w, int d) {
  if (!std::isfinite(x)) return edit_nonfinite(out, x, w);
  char buf[kFixedBuffer];
  std::string_view s = fixed_digits(std::fabs(x), d, buf);
  const auto point = s.find('.');
  std::string_view int_part = s.substr(0, point);
  std::string_view frac =
      point == std::string_view::npos ? std::string_view{} : s.substr(point + 1);
  fixed_layout(out, std::signbit(x), int_part, frac, {}, w);
}

void edit_exp(std::string& out, double x, int w, int d) {
  if (!std::isfinite(x)) return edit_nonfinite(out, x, w);
  Decimal dec;
  if (x == 0.0) {
    dec.n = d;
    for (int k = 0; k < d; ++k) dec.digits[k] = '0';
    dec.exp10 = 0;
  } else {
    dec = significant_digits(std::fabs(x), d);
  }
  // Exponent field: E+xx up to 99, then +xxx without the E.
  char tail[8];
  int t = 0;
  const int e = dec.exp10 < 0 ? -dec.exp10 : dec.exp10;
  if (e <= 99) tail[t++] = 'E';
  tail[t++] = dec.exp10 < 0 ? '-' : '+';
  if (e > 99) tail[t++] = static_cast<char>('0' + e / 100);
  tail[t++] = static_cast<char>('0' + e / 10 % 10);
  tail[t++] = static_cast<char>('0' + e % 10);
  fixed_layout(out, std::signbit(x), "0", std::string_view(dec.digits, static_cast<std::size_t>(d)),
               std::string_view(tail, static_cast<std::size_t>(t)), w);
}

void edit_general(std::string& out, double x, int w, int d) {
  if (!std::isfinite(x)) return edit_nonfinite(out, x, w);
  // The fixed form takes w-4 columns and leaves 4 blanks where the exponent
  // would stand.
  constexpr int kExpColumns = 4;
  int decimals = d - 1;  // zero
  const double m = std::fabs(x);
  if (m != 0.0) {
    // Decade k (printed with d-k decimals) holds the magnitudes from
    // 10**(k-1) * bound up to 10**k * bound, the thresholds being evaluated
    // in double arithmetic: a value one ulp below a decimal threshold such
    // as 0.995 for d = 2 counts as reaching it.
    const double bound = 1.0 - 0.5 / power_of_ten(d);
    if (m < 0.1 * bound || m >= power_of_ten(d) * bound) return edit_exp(out, x, w, d);
    int k = 0;
    while (k < d && m >= power_of_ten(k) * bound) ++k;
    decimals = d - k;
  }
  if (w <= kExpColumns) return stars(out, w);
  const std::size_t start = out.size();
  edit_fixed(out, x, w - kExpColumns, decimals);
  // An overflowing fixed form fills the whole field with asterisks.
  if (out[start] == '*') {
    out.resize(start);
    return stars(out, w);
  }
  out.append(kExpColumns, ' ');
}

void edit_text(std::string& out, std::string_view s, int w) {
  const auto uw = static_cast<std::size_t>(w);
  if (w == 0 || s.size() >= uw) {
    out.append(w == 0 ? s : s.substr(0, uw));
  } else {
    out.append(uw - s.size(), ' ');
    out.append(s);
  }
}

}  // namespace vardel
