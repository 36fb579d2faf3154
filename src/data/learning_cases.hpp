// LearningCases: the cases of the learning sample as they are read.
//
// Takes each case's tokens by their slots (see slots_by_position and
// slots_by_type), finds the first case with a blank predictor, drops those
// whose label is the missing code, numbers the classes in order of first
// appearance and fills the predictor columns. Cases come in parts of
// consecutive cases, as CaseFile::read_parts hands them, and several parts
// may be taken at once on several threads; merge() then joins them in file
// order, so the results are those of taking every case in turn.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "data/sample_columns.hpp"
#include "data/text_codes.hpp"
#include "run/init.hpp"

namespace vardel {

class LearningCases {
 public:
  // capacity: the cases the file holds at most.
  LearningCases(Init& in, std::vector<int> slots, int capacity);

  // Parts starting at these cases (counted from 0).
  void begin(std::span<const long long> first);
  // A case of part p; calls for distinct parts may run at once.
  void take(std::size_t p, std::span<const std::string_view> tokens);
  // Joins the parts in order, after all are taken.
  void merge();

  // The first case read (counted from 1) with a blank predictor, 0 if none.
  int first_blank() const { return first_blank_; }
  SampleColumns& columns() { return columns_; }
  // Fills clabel, cdata and noc (case i's label is clabel(cdata(i))).
  void store_classes();

 private:
  struct Part {
    SampleColumns::Part columns;
    TextCodes classes;  // labels in the part's order of first appearance
    long long first = 0;
    int read = 0;
    int first_blank = 0;  // within the part
    std::vector<std::string_view> predictors;
  };

  Init& in_;
  std::vector<int> slots_;
  SampleColumns columns_;
  std::string_view misskey_;
  std::vector<Part> parts_;
  int first_blank_ = 0;
  TextCodes classes_;
  std::vector<int> class_of_row_;  // by row - 1: the part's class code until merged
};

}  // namespace vardel
