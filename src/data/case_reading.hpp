// Pieces shared by the readers of data files (learning sample and test
// samples): where each token of a case goes, and CaseFile, which counts the
// cases of a data file and hands over their tokens.
//
// CaseFile reads a plain file (see plain_scan.hpp) by splitting lines, and
// any other file by the full free-form reader, with the same counts, tokens
// and failures either way. read_parts() shares a plain file's parts among
// the pool's threads.
#pragma once

#include <atomic>
#include <functional>
#include <initializer_list>
#include <istream>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/plain_scan.hpp"
#include "numerics/farray.hpp"
#include "numerics/list_reader.hpp"
#include "numerics/parallel_for.hpp"

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
  using CaseHandler = std::function<void(std::span<const std::string_view>)>;

  // name: the file's name for messages, trimmed.
  CaseFile(std::istream& in, std::string_view name) : name_(name), reader_(in), scan_(in) {}

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
  void read(int width, int cases, const CaseHandler& take);

  // Reads as read() does, in parts of consecutive cases. Calls
  // parts.begin(first) with the first case (from 0) of each part, then
  // parts.take(p, tokens) for every case of part p, in order within a part.
  // The parts of a plain file are read several at once on the pool's
  // threads, no part on two threads at once; any other file is one part.
  // A file that ends first ends the run, on this thread, after all parts.
  template <class Parts>
  void read_parts(int width, int cases, Parts& parts);

 private:
  // The count and parts of the plain file for reads of `width` tokens.
  const PlainCount& plain_count(int width);
  [[noreturn]] void fail_short();

  std::string name_;
  ListReader reader_;
  PlainScan scan_;
  bool plain_ = false;  // the file was found plain by count()
  int count_width_ = 0;
  PlainCount plain_count_;
  PlainCount recount_;  // parts for another width than the count's
};

template <class Parts>
void CaseFile::read_parts(int width, int cases, Parts& parts) {
  if (!plain_) {
    const long long first[] = {0};
    parts.begin(std::span<const long long>(first));
    read(width, cases,
         [&parts](std::span<const std::string_view> tokens) { parts.take(0, tokens); });
    return;
  }
  const PlainCount& count = plain_count(width);
  std::size_t n = 0;
  while (n < count.parts() && count.part_first[n] < cases) ++n;
  parts.begin(std::span<const long long>(count.part_first.data(), n));
  std::vector<char> short_part(n, 0);
  std::atomic<std::size_t> next{0};
  std::mutex file;
  fork_join(parallel_threads(), [&](std::ptrdiff_t) {
    std::vector<char> text;
    std::vector<std::string_view> tokens;
    for (std::size_t p = next++; p < n; p = next++) {
      {
        const std::lock_guard<std::mutex> lock(file);
        scan_.read_part(count, p, text);
      }
      const long long want = std::min<long long>(count.part_cases(p), cases - count.part_first[p]);
      const long long got =
          split_cases(std::string_view(text.data(), text.size()), width, want, tokens,
                      [&parts, p](std::span<const std::string_view> t) { parts.take(p, t); });
      short_part[p] = got < want;
    }
  });
  for (char s : short_part)
    if (s) fail_short();
  if (count.cases < cases) fail_short();
}

}  // namespace vardel
