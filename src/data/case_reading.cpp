#include "data/case_reading.hpp"

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

int count_cases(ListReader& reader, int width, std::string_view error_head, std::string_view file,
                std::string_view stop_line) {
  std::vector<std::string> tokens(static_cast<std::size_t>(width));
  std::vector<ReadTarget> targets;
  for (std::string& t : tokens) targets.push_back(text(t, kNameLen));
  int count = 0;
  for (;;) {
    const ReadResult r = reader.read(targets);
    if (r.status == ReadStatus::end_of_file) return count;
    if (!r) {
      write_fmt(std::cout, "(a,a,a)", {error_head, file, " has illegal value"});
      stop_with({stop_line});
    }
    ++count;
  }
}

void read_cases(ListReader& reader, std::string_view file, const std::vector<int>& slots,
                TextTable& x, FArray<std::string>* y) {
  std::vector<std::string> tokens(slots.size());
  std::vector<ReadTarget> targets;
  for (std::string& t : tokens) targets.push_back(text(t, kNameLen));
  for (int i = 1; i <= x.rows(); ++i) {
    for (std::string& t : tokens) t.assign(kNameLen, ' ');
    if (auto r = reader.read(targets); !r) input_failure(file, "a value of a case", r);
    for (std::size_t t = 0; t < slots.size(); ++t) {
      if (slots[t] == 0 && y)
        (*y)(i) = tokens[t];
      else if (slots[t] > 0)
        x.set(i, slots[t], tokens[t]);
    }
  }
}

void tokens_to_numbers(std::string_view file, const TextTable& x, FArray<double>& out) {
  const int rows = static_cast<int>(x.rows());
  const int cols = static_cast<int>(x.cols());
  out.assign(rows, cols, 0.0);
  std::vector<double> values(static_cast<std::size_t>(cols));
  std::vector<ReadTarget> targets;
  for (double& v : values) targets.push_back(v);
  std::string record;
  for (int i = 1; i <= rows; ++i) {
    record.clear();
    for (int j = 1; j <= cols; ++j) {
      record += trim(adjustl(x(i, j)));
      record += ' ';
    }
    for (double& v : values) v = 0.0;
    const ReadResult r = read_list(record, targets);
    if (!r) {
      ReadResult where = r;
      where.line = i;
      input_failure(file, join_text({"a number (case ", std::to_string(i), ")"}), where);
    }
    for (int j = 1; j <= cols; ++j) out(i, j) = values[static_cast<std::size_t>(j - 1)];
  }
}

}  // namespace vardel
