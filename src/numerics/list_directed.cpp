// List-directed writing: one record per statement, items set in fixed-width
// fields.
//
//   integers  right-justified in 11 columns (int) or 20 (64-bit)
//   reals     17 significant digits for double, 9 for float; fixed form when
//             the rounded value is 0 or lies in [0.1, 10**digits), in a field
//             of 20 (double) or 12 (float) columns followed by 5 or 4 blanks;
//             otherwise d.ddd...E+xxx (double) or d.ddd...E+xx (float),
//             right-justified in 25 or 16 columns
//   text      as it is, at its whole length
// The record opens with one blank; every item after the first is preceded by
// one blank, except a text item that follows another text item.
#include <cmath>
#include <ostream>

#include "numerics/decimal_digits.hpp"
#include "numerics/format.hpp"
#include "numerics/format_edit.hpp"

namespace vardel {
namespace {

void pad_left(std::string& out, std::string_view body, std::size_t w) {
  if (body.size() < w) out.append(w - body.size(), ' ');
  out.append(body);
}

void list_real(std::string& out, double x, bool is_double) {
  const int digits = is_double ? 17 : 9;
  const std::size_t width = is_double ? 25 : 16;
  const int exp_digits = is_double ? 3 : 2;
  const std::size_t tail = static_cast<std::size_t>(exp_digits) + 2;  // blanks after the fixed form

  if (!std::isfinite(x)) return edit_fixed(out, x, static_cast<int>(width), 0);
  const double ax = std::fabs(x);
  Decimal dec;
  if (ax == 0.0) {
    dec.n = digits;
    for (int k = 0; k < digits; ++k) dec.digits[k] = '0';
    dec.exp10 = 1;
  } else {
    dec = significant_digits(ax, digits);
  }

  char body[kMaxDigits + 16];
  std::size_t n = 0;
  if (std::signbit(x)) body[n++] = '-';
  if (dec.exp10 >= 0 && dec.exp10 <= digits) {
    // Fixed form: the digits with the point after exp10 of them.
    if (dec.exp10 == 0) body[n++] = '0';
    for (int k = 0; k < digits; ++k) {
      if (k == dec.exp10) body[n++] = '.';
      body[n++] = dec.digits[k];
    }
    if (dec.exp10 == digits) body[n++] = '.';
    pad_left(out, std::string_view(body, n), width - tail);
    out.append(tail, ' ');
    return;
  }
  body[n++] = dec.digits[0];
  body[n++] = '.';
  for (int k = 1; k < digits; ++k) body[n++] = dec.digits[k];
  body[n++] = 'E';
  int e = dec.exp10 - 1;
  body[n++] = e < 0 ? '-' : '+';
  if (e < 0) e = -e;
  if (exp_digits == 3 || e > 99) body[n++] = static_cast<char>('0' + e / 100);
  body[n++] = static_cast<char>('0' + e / 10 % 10);
  body[n++] = static_cast<char>('0' + e % 10);
  pad_left(out, std::string_view(body, n), width);
}

}  // namespace

std::string list_directed(std::span<const FmtItem> items) {
  std::string out(1, ' ');
  bool after_text = false;
  for (std::size_t k = 0; k < items.size(); ++k) {
    const FmtItem& item = items[k];
    const bool text = item.kind() == FmtItem::Kind::text;
    if (k > 0 && !(text && after_text)) out += ' ';
    after_text = text;
    switch (item.kind()) {
      case FmtItem::Kind::integer:
        edit_integer(out, item.integer(), item.wide() ? 20 : 11, -1);
        break;
      case FmtItem::Kind::real:
        list_real(out, item.real(), item.wide());
        break;
      case FmtItem::Kind::text:
        out.append(item.text());
        break;
    }
  }
  // An empty list gives an empty line, without the opening blank.
  if (items.empty()) out.clear();
  out += '\n';
  return out;
}

std::string list_directed(std::initializer_list<FmtItem> items) {
  return list_directed(std::span<const FmtItem>(items.begin(), items.size()));
}

void write_list(std::ostream& out, std::span<const FmtItem> items) {
  out << list_directed(items);
}

void write_list(std::ostream& out, std::initializer_list<FmtItem> items) {
  out << list_directed(items);
}

}  // namespace vardel
