// PlainScan: the quick reading of a data file written plainly.
//
// A plain file holds tokens separated by blanks, tabs and line ends only: no
// comma, slash, quote or star anywhere. Read free-form, such a file needs no
// more than splitting lines at blanks: every read of w tokens starts on a new
// line, passes over blank lines, goes on over line ends until it has w tokens
// and drops the rest of its last line.
//
// count() is the first pass: it tells whether the file is plain and, if so,
// how many whole reads of w tokens it holds, its tokens and its lines, and
// cuts the file into parts of whole lines, each starting with a read, of
// about kPlainPartBytes. The count runs over stretches of the file on the
// pool's threads at once, each counted as if no read went on into it, and
// counts a stretch again in turn when one does; the results are those of one
// count from the start. read_part() gives a part's text, and split_cases()
// cuts a text into its reads, so parts can be handled one at a time or
// several at once. A file that is not plain is left to the full free-form
// reader.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <istream>
#include <span>
#include <string_view>
#include <vector>

#include "run/init.hpp"

namespace vardel {

// Size a part of a plain file aims at: large enough to make the hand-over of
// a part cheap, small enough to keep a part's text of each thread in memory.
inline constexpr std::size_t kPlainPartBytes = std::size_t{4} << 20;

// How plain files are cut: into parts of about part_bytes, and for the count
// into stretches of about segment_bytes counted at once (0: the file shared
// among the pool's threads).
struct PlainSizes {
  std::size_t part_bytes = kPlainPartBytes;
  long long segment_bytes = 0;
};

// The sizes readers use; tests make them small to cut small files into many
// pieces.
PlainSizes& plain_sizes();

struct PlainCount {
  long long cases = 0;   // whole reads of the width
  long long tokens = 0;  // all tokens of the file
  long lines = 0;        // records of the file
  long long bytes = 0;   // size of the file
  // Part p starts at byte part_offset[p] with read number part_first[p]
  // (counted from 0) and ends where the next begins, the last at the end of
  // the file.
  std::vector<long long> part_offset;
  std::vector<long long> part_first;

  std::size_t parts() const { return part_first.size(); }
  long long part_cases(std::size_t p) const {
    return (p + 1 < parts() ? part_first[p + 1] : cases) - part_first[p];
  }
};

namespace plain_text {

enum CharClass : unsigned char { kToken, kBlank, kLineEnd, kSpecial };

// Blank, tab and carriage return separate tokens; a comma, slash, quote or
// star may change the meaning of a free-form read, so the file is not plain.
constexpr std::array<unsigned char, 256> make_classes() {
  std::array<unsigned char, 256> t{};
  t[' '] = t['\t'] = t['\r'] = kBlank;
  t['\n'] = kLineEnd;
  t[','] = t['/'] = t['\''] = t['"'] = t['*'] = kSpecial;
  return t;
}
inline constexpr std::array<unsigned char, 256> kClass = make_classes();

inline unsigned char class_of(char c) {
  return kClass[static_cast<unsigned char>(c)];
}

}  // namespace plain_text

class PlainScan {
 public:
  explicit PlainScan(std::istream& in, PlainSizes sizes = plain_sizes()) : in_(in), sizes_(sizes) {}

  // First pass from the start of the file; false if the file is not plain.
  bool count(int width, PlainCount& out);
  // Reads the text of part p of a count into text; false if the file gives
  // less. Calls must not overlap.
  bool read_part(const PlainCount& count, std::size_t p, std::vector<char>& text);

 private:
  std::istream& in_;
  PlainSizes sizes_;
};

// Cuts the reads of `width` tokens out of a plain text that starts at a line
// start, as a free-form read makes them: calls take(tokens) for each of the
// first `cases`, its tokens cut to 21 characters and valid during the call.
// Returns how many reads there were. tokens is scratch.
template <class Take>
long long split_cases(std::string_view text, int width, long long cases,
                      std::vector<std::string_view>& tokens, Take&& take) {
  using plain_text::class_of;
  using plain_text::kToken;
  if (cases <= 0 || width <= 0) return 0;
  const std::size_t w = static_cast<std::size_t>(width);
  tokens.resize(w);
  const char* p = text.data();
  const char* const end = p + text.size();
  std::size_t have = 0;
  long long done = 0;
  while (p < end) {
    if (class_of(*p) != kToken) {
      ++p;
      continue;
    }
    const char* const b = p;
    while (p < end && class_of(*p) == kToken) ++p;
    const std::size_t n = static_cast<std::size_t>(p - b);
    tokens[have] = std::string_view(b, n < kNameLen ? n : kNameLen);
    if (++have < w) continue;
    take(std::span<const std::string_view>(tokens));
    have = 0;
    if (++done == cases) break;
    // The next read starts on a new line.
    const void* nl = std::memchr(p, '\n', static_cast<std::size_t>(end - p));
    p = nl ? static_cast<const char*>(nl) + 1 : end;
  }
  return done;
}

}  // namespace vardel
