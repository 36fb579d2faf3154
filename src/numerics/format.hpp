// Formatted and list-directed writing of text records.
//
// format() applies an edit-descriptor format such as "(a,i7)" or
// "(2(a7,g10.3,a8,g10.3))" to a list of items and returns the records it
// makes, each ended by '\n'. Blanks outside quoted literals do not count and
// letters may be of either case. Descriptors understood:
//   iw, iw.m     integer, right-justified in w columns (at least m digits)
//   fw.d         real, fixed point with d decimals
//   ew.d         real, 0.ddddE+xx form with d digits of mantissa
//   gw.d         real, fixed form with d significant digits and 4 trailing
//                blanks when 0.1 <= |x| < 10**d after rounding, else ew.d
//   a, aw        text at its whole length, or in w columns
//   nx           n blanks
//   /            end of record
//   :            stop here when no items remain
//   'text' "text" literal (a doubled quote stands for one)
//   r(...)       group repeated r times; r before i, f, e, g, a and / repeats it
// A numeric value too wide for its field prints as w asterisks. When items
// remain at the end of the format, a new record begins and the format
// resumes at its last top-level group (with its repeat count) or at its start.
// When the items run out, writing stops at the next value descriptor.
//
// A malformed format, or an item of the wrong kind for its descriptor
// (an integer under f, a real under i, text under either), is a fault of
// the caller and throws std::logic_error.
//
// list_directed() writes items the way a free-form write statement does:
// one blank opens the record, integers and reals are set in fixed widths,
// text is written as it is, and every item but a text item that follows
// another text item is preceded by one blank.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

#include "numerics/text.hpp"

namespace vardel {

// One item of an output list: an integer, a real, or a text item at its
// declared length. A text item refers to the caller's characters, so it must
// not outlive them; build item lists in the call that writes them.
class FmtItem {
 public:
  enum class Kind { integer, real, text };

  FmtItem(int v) : kind_(Kind::integer), wide_(false), i_(v) {}
  FmtItem(long v) : kind_(Kind::integer), wide_(true), i_(v) {}
  FmtItem(long long v) : kind_(Kind::integer), wide_(true), i_(v) {}
  FmtItem(double v) : kind_(Kind::real), wide_(true), r_(v) {}
  FmtItem(float v) : kind_(Kind::real), wide_(false), r_(v) {}
  FmtItem(const char* s) : kind_(Kind::text), wide_(false), s_(s) {}
  FmtItem(std::string_view s) : kind_(Kind::text), wide_(false), s_(s) {}
  FmtItem(const std::string& s) : kind_(Kind::text), wide_(false), s_(s) {}
  // A lone char or bool would otherwise be taken for an integer.
  FmtItem(char) = delete;
  FmtItem(bool) = delete;

  Kind kind() const { return kind_; }
  // Integers: 64-bit (long, long long) rather than int. Reals: double rather
  // than float. List-directed writing sets the wide kinds in wider fields.
  bool wide() const { return wide_; }
  std::int64_t integer() const { return i_; }
  double real() const { return r_; }
  std::string_view text() const { return s_; }

 private:
  Kind kind_;
  bool wide_;
  std::int64_t i_ = 0;
  double r_ = 0.0;
  std::string_view s_;
};

// Advance::no leaves the last record without its line end (a prompt).
enum class Advance { yes, no };

// Formatted write: the records made, each ended by '\n' (with Advance::no the
// last one is not).
std::string format(std::string_view fmt, std::span<const FmtItem> items,
                   Advance adv = Advance::yes);
std::string format(std::string_view fmt, std::initializer_list<FmtItem> items,
                   Advance adv = Advance::yes);
void write_fmt(std::ostream& out, std::string_view fmt, std::span<const FmtItem> items,
               Advance adv = Advance::yes);
void write_fmt(std::ostream& out, std::string_view fmt, std::initializer_list<FmtItem> items,
               Advance adv = Advance::yes);

// List-directed write of one statement: one record ended by '\n'. No items
// give an empty line.
std::string list_directed(std::span<const FmtItem> items);
std::string list_directed(std::initializer_list<FmtItem> items);
void write_list(std::ostream& out, std::span<const FmtItem> items);
void write_list(std::ostream& out, std::initializer_list<FmtItem> items);

}  // namespace vardel
