// Parsing of edit-descriptor formats into a flat list of operations.
//
// A format "(i2,2(i3,1x),'ab')" becomes
//   open(1) i2 open(2) i3 x1 close literal close
// where each open knows its close and each close its open. Parsed formats
// are kept in a small per-thread cache keyed by the format string, since
// reports format every row of a table with the same few formats.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vardel {

struct FormatOp {
  enum class Code : unsigned char { i, f, e, g, a, x, slash, colon, literal, open, close };
  FormatOp(Code c) : code(c) {}

  Code code;
  int repeat = 1;        // times a value descriptor or / applies; passes of a group
  int w = 0;             // field width (a: 0 for the item's own length); x: blanks
  int d = -1;            // decimals of f, e, g; minimum digits of i (-1 when absent)
  std::size_t link = 0;  // open: index of its close; close: index of its open
  std::string text;      // literal text, quotes undone

  bool is_value() const { return code <= Code::a; }
};

struct ParsedFormat {
  std::vector<FormatOp> ops;  // ops.front() and ops.back() are the outer parentheses
  // Where a new record resumes when items remain at the outer close: the
  // open of the last top-level group, or 1 (just inside the outer open).
  std::size_t reversion = 1;
  // Whether a value descriptor lies at or after the reversion point; without
  // one, leftover items could never be written.
  bool reversion_takes_items = false;
};

// Throws std::logic_error naming the format when it is malformed.
ParsedFormat parse_format(std::string_view fmt);

// parse_format through the cache. The reference stays valid until the next
// call on the same thread.
const ParsedFormat& cached_format(std::string_view fmt);

}  // namespace vardel
