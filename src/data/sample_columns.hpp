// SampleColumns: the predictors of a sample, filled case by case from their
// tokens and turned into the number table.
//
// A token equal to the missing code is flagged 'y' and stands for the token
// "0". Numerical tokens become numbers as they come, by the free-form rules
// for a number. Categorical tokens are kept as the index of their text in a
// list per predictor: for a learning sample the list grows in order of first
// appearance, so the index is the category code; for a test sample the list
// is the learning sample's catlabel, and a text not in it gets code 0. A
// missing categorical value takes the code of a category labelled "0", if
// there is one, else 0.
//
// The number table is the one a free-form read of each case's predictor
// tokens (categories written as their codes) would give, case after case; a
// token that is no number ends the run as an input failure, reported when
// finish() reaches its case.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "run/init.hpp"

namespace vardel {

class SampleColumns {
 public:
  // x and misind receive the table and the flags, at first `capacity` cases
  // by in.nvar. known_categories: codes come from in.catlabel.
  SampleColumns(const Init& in, int capacity, bool known_categories, FArray<double>& x,
                FArray<char>& misind);
  ~SampleColumns();

  // Adds a case from its nvar predictor tokens (21 characters at most).
  void add(std::span<const std::string_view> predictors);
  // Cuts x and misind to the cases added.
  void close();
  int cases() const { return cases_; }
  int cases_with_missing() const { return cases_missing_; }
  // A predictor missing in every case is flagged in none: it stays as the
  // constant 0, which for a categorical predictor is then its one category "0".
  void clear_never_observed();
  // Fills numcat and catlabel from the lists (learning sample).
  void store_categories(Init& in) const;
  // Puts the codes into x and reads the cases whose tokens need the full
  // free-form reader; a token that is no number ends the run.
  void finish(std::string_view file);

 private:
  struct Category;
  struct OddCase;

  const Init& in_;
  FArray<double>& x_;
  FArray<char>& misind_;
  std::string misskey_;  // the missing code without its trailing blanks
  bool known_;
  int capacity_;
  int cases_ = 0;
  int cases_missing_ = 0;
  std::vector<int> catindex_;  // predictor -> categorical index k, 0 for numerical
  std::vector<std::unique_ptr<Category>> categories_;
  std::vector<OddCase> odd_;
  int bad_case_ = 0;  // first case with a token that is no number
  std::string bad_token_;
};

}  // namespace vardel
