#include "data/learning_cases.hpp"

#include <algorithm>

#include "data/case_reading.hpp"
#include "numerics/format.hpp"

namespace vardel {

LearningCases::LearningCases(Init& in, std::vector<int> slots, int capacity)
    : in_(in),
      slots_(std::move(slots)),
      columns_(in, capacity, false, in.xdata, in.misind),
      misskey_(text_key(in.misscode)),
      class_of_row_(static_cast<std::size_t>(std::max(capacity, 0)), 0) {}

void LearningCases::begin(std::span<const long long> first) {
  parts_.clear();
  parts_.resize(first.size());
  for (std::size_t p = 0; p < first.size(); ++p) {
    parts_[p].columns = columns_.part(first[p]);
    parts_[p].first = first[p];
    parts_[p].predictors.resize(static_cast<std::size_t>(in_.nvar));
  }
}

void LearningCases::take(std::size_t p, std::span<const std::string_view> tokens) {
  Part& part = parts_[p];
  ++part.read;
  std::string_view label;
  std::fill(part.predictors.begin(), part.predictors.end(), std::string_view());
  for (std::size_t t = 0; t < slots_.size(); ++t) {
    if (slots_[t] == 0)
      label = tokens[t];
    else if (slots_[t] > 0)
      part.predictors[static_cast<std::size_t>(slots_[t] - 1)] = tokens[t];
  }
  if (part.first_blank == 0) {
    for (std::string_view x : part.predictors)
      if (text_key(x).empty()) part.first_blank = part.read;
  }
  label = text_key(label);
  if (label == misskey_) return;
  columns_.add(part.columns, part.predictors);
  class_of_row_[static_cast<std::size_t>(part.first + part.columns.cases() - 1)] =
      part.classes.find_or_add(label);
}

void LearningCases::merge() {
  std::vector<int> code;
  for (Part& part : parts_) {
    if (first_blank_ == 0 && part.first_blank > 0)
      first_blank_ = static_cast<int>(part.first) + part.first_blank;
    code.assign(static_cast<std::size_t>(part.classes.size()) + 1, 0);
    for (int c = 1; c <= part.classes.size(); ++c)
      code[static_cast<std::size_t>(c)] =
          classes_.find_or_add(part.classes.texts()[static_cast<std::size_t>(c - 1)]);
    // The part's rows move up to follow the rows before (never down).
    const std::size_t from = static_cast<std::size_t>(part.first);
    const std::size_t to = static_cast<std::size_t>(columns_.cases());
    for (std::size_t i = 0; i < static_cast<std::size_t>(part.columns.cases()); ++i)
      class_of_row_[to + i] = code[static_cast<std::size_t>(class_of_row_[from + i])];
    columns_.merge(part.columns);
  }
  parts_.clear();
}

void LearningCases::store_classes() {
  Init& in = in_;
  in.nclass = classes_.size();
  in.clabel.assign(in.nclass);
  for (int k = 1; k <= in.nclass; ++k)
    in.clabel(k) = fixed_text(classes_.texts()[static_cast<std::size_t>(k - 1)], kNameLen);
  in.cdata.assign(in.nobs, 0);
  in.noc.assign(in.nclass, 0);
  for (int i = 1; i <= in.nobs; ++i) {
    const int k = class_of_row_[static_cast<std::size_t>(i - 1)];
    in.cdata(i) = k;
    ++in.noc(k);
  }
}

}  // namespace vardel
