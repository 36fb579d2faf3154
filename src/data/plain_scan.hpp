// PlainScan: the quick reading of a data file written plainly.
//
// A plain file holds tokens separated by blanks, tabs and line ends only: no
// comma, slash, quote or star anywhere. Read free-form, such a file needs no
// more than splitting lines at blanks: every read of w tokens starts on a new
// line, passes over blank lines, goes on over line ends until it has w tokens
// and drops the rest of its last line. PlainScan reads the file that way, a
// block at a time, without keeping more than one case of tokens.
//
// count() is the first pass: it tells whether the file is plain and, if so,
// how many whole reads of w tokens it holds, its tokens and its lines. read()
// is the second: it hands each read of w tokens, cut to 21 characters, to a
// callback. A file that is not plain is left to the full free-form reader.
#pragma once

#include <functional>
#include <istream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vardel {

struct PlainCount {
  long long cases = 0;   // whole reads of the width
  long long tokens = 0;  // all tokens of the file
  long lines = 0;        // records of the file
};

class PlainScan {
 public:
  using CaseHandler = std::function<void(std::span<const std::string_view>)>;

  explicit PlainScan(std::istream& in) : in_(in) {}

  // First pass from the start of the file; false if the file is not plain.
  bool count(int width, PlainCount& out);
  // Second pass from the start: hands at most `cases` reads of `width` tokens
  // to take; returns how many there were.
  long long read(int width, long long cases, const CaseHandler& take);

 private:
  template <class OnLine>
  bool for_each_line(OnLine&& on_line);

  std::istream& in_;
  std::vector<char> block_;
  std::string carry_;  // a line split between two blocks
};

}  // namespace vardel
