#include "data/case_reading.hpp"

#include <algorithm>
#include <iostream>

#include "data/input_failure.hpp"
#include "numerics/format.hpp"
#include "report/exitprog.hpp"
#include "run/init.hpp"

namespace vardel {

void stop_with(std::initializer_list<std::string_view> lines) {
  for (std::string_view line : lines) write_fmt(std::cout, "(a)", {line});
  exitprog();
}

std::vector<int> slots_by_position(int nvar, int dpos) {
  std::vector<int> slots;
  auto predictor = [nvar](int j) { return j >= 1 && j <= nvar ? j : -1; };
  if (dpos == 1) {
    slots.push_back(0);
    for (int j = 1; j <= nvar; ++j) slots.push_back(j);
  } else if (dpos == nvar + 1) {
    for (int j = 1; j <= nvar; ++j) slots.push_back(j);
    slots.push_back(0);
  } else {
    for (int j = 1; j <= dpos - 1; ++j) slots.push_back(predictor(j));
    slots.push_back(0);
    for (int j = dpos; j <= nvar; ++j) slots.push_back(predictor(j));
  }
  return slots;
}

std::vector<int> slots_by_type(const FArray<char>& alltype, bool label) {
  std::vector<int> slots;
  int p = 0;
  for (char type : alltype) {
    if (type == 'd') {
      if (label) slots.push_back(0);
    } else if (type == 'x') {
      slots.push_back(-1);
    } else {
      slots.push_back(++p);
    }
  }
  return slots;
}

int CaseFile::count(int width, std::string_view error_head, std::string_view stop_line) {
  plain_ = scan_.count(width, plain_count_);
  count_width_ = width;
  if (plain_) return static_cast<int>(plain_count_.cases);
  reader_.rewind();
  std::vector<std::string> tokens(static_cast<std::size_t>(width));
  std::vector<ReadTarget> targets;
  for (std::string& t : tokens) targets.push_back(text(t, kNameLen));
  int count = 0;
  for (;;) {
    const ReadResult r = reader_.read(targets);
    if (r.status == ReadStatus::end_of_file) return count;
    if (!r) {
      write_fmt(std::cout, "(a,a,a)", {error_head, name_, " has illegal value"});
      stop_with({stop_line});
    }
    ++count;
  }
}

bool CaseFile::more_than(long long values) {
  if (plain_) return plain_count_.tokens > values;
  reader_.rewind();
  return static_cast<bool>(reader_.skip_values(values + 1));
}

const PlainCount& CaseFile::plain_count(int width) {
  if (width == count_width_) return plain_count_;
  // Reads of another width start on other lines: cut the parts again.
  scan_.count(width, recount_);
  return recount_;
}

void CaseFile::fail_short() {
  // The next read meets the end of the file after its last line.
  ReadResult r;
  r.status = ReadStatus::end_of_file;
  r.line = plain_count_.lines;
  input_failure(name_, "a value of a case", r);
}

void CaseFile::read(int width, int cases, const CaseHandler& take) {
  if (plain_) {
    const PlainCount& count = plain_count(width);
    std::vector<char> text;
    std::vector<std::string_view> tokens;
    long long done = 0;
    for (std::size_t p = 0; p < count.parts() && done < cases; ++p) {
      scan_.read_part(count, p, text);
      const long long want = std::min<long long>(count.part_cases(p), cases - done);
      const long long got =
          split_cases(std::string_view(text.data(), text.size()), width, want, tokens, take);
      if (got < want) fail_short();
      done += got;
    }
    if (done < cases) fail_short();
    return;
  }
  reader_.rewind();
  std::vector<std::string> tokens(static_cast<std::size_t>(width));
  std::vector<std::string_view> views(tokens.size());
  std::vector<ReadTarget> targets;
  for (std::string& t : tokens) targets.push_back(text(t, kNameLen));
  for (int i = 1; i <= cases; ++i) {
    for (std::string& t : tokens) t.assign(kNameLen, ' ');
    if (auto r = reader_.read(targets); !r) input_failure(name_, "a value of a case", r);
    for (std::size_t t = 0; t < tokens.size(); ++t) views[t] = tokens[t];
    take(views);
  }
}

}  // namespace vardel
