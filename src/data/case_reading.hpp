// Pieces shared by the readers of data files (learning sample and test
// samples): where each token of a case goes, and CaseFile, which counts the
// cases of a data file and hands over their tokens.
//
// CaseFile reads a plain file (see plain_scan.hpp) by splitting lines, and
// any other file by the full free-form reader, with the same counts, tokens
// and failures either way.
#pragma once

#include <initializer_list>
#include <istream>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/plain_scan.hpp"
#include "numerics/farray.hpp"
#include "numerics/list_reader.hpp"

namespace vardel {

// A token as tokens are compared (blank padded to 21 characters): without
// its trailing blanks.
inline std::string_view text_key(std::string_view token) {
  std::size_t n = token.size();
  while (n > 0 && token[n - 1] == ' ') --n;
  return token.substr(0, n);
}

// Lookup of texts by string_view without building a string.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
};
using TextIndex = std::unordered_map<std::string, int, TextHash, std::equal_to<>>;

// Writes each line by "(a)" and ends the run through exitprog.
[[noreturn]] void stop_with(std::initializer_list<std::string_view> lines);

// Token slots of a case: 0 the class label, j > 0 predictor j, -1 dropped.
// By position: the label at position dpos among nvar + 1 tokens; a position
// outside 1..nvar + 1 drops the predictors that fall beyond the table.
std::vector<int> slots_by_position(int nvar, int dpos);
// By type letters ('d', 'x', others predictors in order). With a label
// false, the 'd' column has no token.
std::vector<int> slots_by_type(const FArray<char>& alltype, bool label);

class CaseFile {
 public:
  // name: the file's name for messages, trimmed.
  CaseFile(std::istream& in, std::string_view name) : in_(in), name_(name), reader_(in) {}

  // Counts whole cases of `width` tokens, each case one read; end of file
  // ends the count and a last incomplete case is not counted. Any other read
  // failure writes error_head, the name and " has illegal value", then
  // stop_line, and calls exitprog.
  int count(int width, std::string_view error_head, std::string_view stop_line);
  // True if the file holds more than `values` tokens in all.
  bool more_than(long long values);
  // Reads `cases` cases of `width` tokens from the start, handing each to
  // take (tokens of at most 21 characters). A file that ends first ends the
  // run as an input failure.
  void read(int width, int cases, const PlainScan::CaseHandler& take);

 private:
  std::istream& in_;
  std::string name_;
  ListReader reader_;
  PlainScan scan_{in_};
  bool plain_ = false;  // the file was found plain by count()
  PlainCount plain_count_;
};

}  // namespace vardel
