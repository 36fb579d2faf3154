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
//
// Cases come either one by one through add(predictors), or through Parts:
// stretches of consecutive cases that several threads may fill at once, each
// into rows of its own and with codes of its own for the categories it
// meets, and that merge() then takes in file order, moving their rows up to
// follow the cases before them and renumbering their categories.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/text_codes.hpp"
#include "run/init.hpp"

namespace vardel {

class SampleColumns {
  struct OddCase;

 public:
  // The cases of one stretch of the file.
  class Part {
   public:
    Part();
    Part(Part&&) noexcept;
    Part& operator=(Part&&) noexcept;
    ~Part();
    int cases() const { return cases_; }

   private:
    friend class SampleColumns;
    long long first_ = 0;  // its cases go to rows first_ + 1 on until merged
    int cases_ = 0;
    int missing_ = 0;
    std::vector<TextCodes> categories_;  // by categorical index k - 1
    std::vector<OddCase> odd_;           // rows counted within the part
    int bad_case_ = 0;                   // within the part
    std::string bad_token_;
  };

  // x and misind receive the table and the flags, at first `capacity` cases
  // by in.nvar. known_categories: codes come from in.catlabel.
  SampleColumns(const Init& in, int capacity, bool known_categories, FArray<double>& x,
                FArray<char>& misind);
  ~SampleColumns();

  // Adds a case from its nvar predictor tokens (21 characters at most).
  void add(std::span<const std::string_view> predictors) { add(whole_, predictors); }

  // A part whose cases go to rows first + 1 on, first + its cases at most
  // the capacity.
  Part part(long long first) const;
  // Adds a case of the part. Calls for parts on rows of their own may run at
  // once on several threads.
  void add(Part& part, std::span<const std::string_view> predictors);
  // Takes the part's cases after those taken so far; parts are merged in
  // the order of their rows, and the part is left empty.
  void merge(Part& part);

  // Cuts x and misind to the cases added (cases added one by one are taken
  // here).
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
  Part whole_;  // the cases added one by one
  std::vector<OddCase> odd_;
  int bad_case_ = 0;  // first case with a token that is no number
  std::string bad_token_;
};

}  // namespace vardel
