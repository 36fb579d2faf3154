// Editing of one value into one field of a record.
//
// Each routine appends exactly one field to out: w characters for the
// numeric edits (w asterisks when the value does not fit), the text's own
// length or w characters for edit_text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vardel {

// iw (m < 0) or iw.m: at least m digits; iw.0 prints zero as blanks.
void edit_integer(std::string& out, std::int64_t v, int w, int m);
// fw.d: fixed point rounded to d decimals.
void edit_fixed(std::string& out, double x, int w, int d);
// ew.d: 0.ddddE+xx with d digits; exponents beyond 99 drop the E (0.dd+xxx).
void edit_exp(std::string& out, double x, int w, int d);
// gw.d: f(w-4).(d-k) and 4 blanks when the value rounded to d digits is
// 0.ddd x 10**k with 0 <= k <= d, or is zero; ew.d otherwise.
void edit_general(std::string& out, double x, int w, int d);
// a (w == 0): the whole text; aw: right-justified in w, or its first w characters.
void edit_text(std::string& out, std::string_view s, int w);

}  // namespace vardel
