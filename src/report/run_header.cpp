#include "report/run_header.hpp"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iostream>
#include <string>

#include "numerics/format.hpp"
#include "report/class_order.hpp"
#include "report/tree_walk.hpp"
#include "run/init.hpp"
#include "timing/clock.hpp"

namespace vardel {

namespace {

constexpr const char* kContactLine = " the VARDEL developers (see README.md)";

std::string text_of(std::string_view s) {
  return std::string(trim(adjustl(s)));
}

void write_split_type(std::ostream& out, const Init& in) {
  if (in.splittype == 2) {
    write_fmt(out, "(a)", {" Split type: Linear combination splits"});
    return;
  }
  write_fmt(out, "(a)", {" Split type: Univariate splits"});
  if (in.varsel == 1) {
    write_fmt(out, "(a)", {"   Variable Selection method: 2D"});
  } else if (in.varsel == 2) {
    write_fmt(out, "(a)", {"   Variable Selection method: 1D"});
    write_fmt(out, "(a,g10.3)", {"     alpha-threshold used = ", in.alpha});
  } else if (in.varsel == 3) {
    write_fmt(out, "(a)", {"   Variable Selection method: Exhaustive search"});
  }
  if (in.splitsel == 1) write_fmt(out, "(a)", {"   Split method: Linear discriminant analysis"});
  if (in.splitsel == 2) write_fmt(out, "(a)", {"   Split method: Exhaustive search"});
  if (in.pairsel == 1) write_fmt(out, "(a)", {"   Pairwise Variable Selection method: MANOVA"});
  if (in.pairsel == 2) write_fmt(out, "(a)", {"   Pairwise Variable Selection method: LDF"});
}

void write_priors(std::ostream& out, const Init& in, const FArray<int>& indx, int w) {
  if (in.priortype == 1)
    write_fmt(out, "(a)", {" Prior selection: Equal prior probabilities"});
  else if (in.priortype == 2)
    write_fmt(out, "(a)", {" Prior selection: Estimated prior probabilities"});
  else
    write_fmt(out, "(a)", {" Prior selection: Prior probabilities are given by user"});
  const int v = std::max(w, 5);
  const std::string head = join_text({"(3x,a", std::to_string(v), ",1x,a)"});
  const std::string row = join_text({"(3x,a", std::to_string(v), ",1x,f8.3)"});
  write_fmt(out, head, {"Class", "prior (scaled to have sum 1)"});
  for (int k = 1; k <= in.nclass; ++k) write_fmt(out, row, {in.clabel(indx(k)), in.prob(indx(k))});
}

void write_costs(std::ostream& out, const Init& in, const FArray<int>& indx, int w) {
  if (in.costtype == 1) {
    write_fmt(out, "(a)", {" Cost selection: Equal misclassification costs"});
    return;
  }
  write_fmt(out, "(a)", {" Cost selection: Unequal misclassification costs"});
  write_list(out, {"                 Predicted Class"});
  double largest = 0.0;
  for (double c : in.cost) largest = std::max(largest, c);
  const int m = digit_count(std::llround(largest));
  const int e = std::max(w, 12);
  const int f = std::max(m + 4, w) + 1;
  const int k = in.nclass;
  std::vector<FmtItem> labels;
  for (int p = 1; p <= k; ++p) labels.emplace_back(in.clabel(indx(p)));
  write_fmt(
      out,
      join_text({"(", std::to_string(e + 4), "x,", std::to_string(k), "a", std::to_string(f), ")"}),
      labels);
  write_fmt(out, join_text({"(3x,a", std::to_string(e), ",1x,a)"}),
            {"Actual class", "---------------------"});
  const std::string row = join_text(
      {"(3x,a", std::to_string(e), ",1x,", std::to_string(k), "f", std::to_string(f), ".3)"});
  for (int a = 1; a <= k; ++a) {
    std::vector<FmtItem> items{FmtItem(in.clabel(indx(a)))};
    for (int p = 1; p <= k; ++p) items.emplace_back(in.cost(indx(p), indx(a)));
    write_fmt(out, row, items);
  }
}

const char* build_imputation(const Init& in) {
  if (in.misslearn == 'n') return "No missing value was found";
  switch (in.impbuild) {
    case 1:
      return "Fit (complete cases) and impute method";
    case 2:
      return "Impute and fit method";
    case 3:
      return "Fit (available cases) and impute (univariate split) method";
    case 4:
      return "Impute at root node only and fit method";
    default:
      return "";
  }
}

const char* prune_imputation(int impprune) {
  switch (impprune) {
    case 1:
      return "Root node imputation";
    case 2:
      return "Nodewise mean/mode imputation for each node ";
    case 3:
      return "Estimate the class and impute";
    case 4:
      return "Going down while possible";
    case 5:
      return "Alternate Split";
    case 6:
      return "Proxy Split";
    default:
      return "";
  }
}

// The pruning-sample imputation is not shown when the dialogue did not ask for it.
bool prune_imputation_asked(const Init& in) {
  if (in.testtype == 3 && in.treesize != 1) return false;
  if (in.misstest != 'y' && in.misslearn != 'y') return false;
  if (in.testtype == 2 && in.misstest == 'n' && (in.prunetype == 2 || in.treesize == 2))
    return false;
  return true;
}

}  // namespace

int cases_with_missing() {
  const Init& in = init();
  int count = 0;
  for (int i = 1; i <= in.nobs; ++i) {
    for (int j = 1; j <= in.nvar; ++j) {
      if (in.misind(i, j) == 'y') {
        ++count;
        break;
      }
    }
  }
  return count;
}

float missing_percentage() {
  const Init& in = init();
  long long flagged = 0;
  for (char c : in.misind) flagged += c == 'y';
  const float cells = static_cast<float>(in.nvar) * static_cast<float>(in.nobs);
  if (cells == 0.0f) return 0.0f;
  return static_cast<float>(flagged) / cells * 100.0f;
}

void print_info() {
  const Init& in = init();
  std::ofstream out(std::string(trim(in.outfile)), std::ios::trunc);

  write_fmt(out, "(a)", {trim(in.bannerline)});
  write_fmt(out, "(a)", {trim(in.noticeline)});
  write_fmt(out, "(a)", {" Please send comments, questions, or bug reports to"});
  write_fmt(out, "(a)", {kContactLine});
  const DateTime now = local_date_time();
  write_fmt(out, "(a,i2,a1,i2,a1,i4,1x,a,i2,a1,i2.2)",
            {" This job was completed on ", now.month, "/", now.day, "/", now.year, " at ",
             now.hour, ":", now.minute});
  write_list(out, {});

  write_fmt(out, "(a,a)", {" Variable description file: ", text_of(in.dscfile)});
  write_fmt(out, "(a,a)", {" Learning sample data file is: ", text_of(in.datafile)});
  write_fmt(out, "(a,a)", {" Code for missing values: ", text_of(in.misscode)});
  write_fmt(out, "(a)",
            {" Variables in data file (d=dependent, c=categorical, n=numerical, x=excluded):"});
  write_fmt(out, "(a)", {" Column #   Variable name   Variable type"});
  for (FArray<int>::Index i = 1; i <= in.vxname.size(); ++i)
    write_fmt(out, "(i5,7x,a15,8x,a)",
              {static_cast<int>(i), in.vxname(i), std::string(1, in.alltype(i))});
  write_list(out, {});

  int classes_present = 0;
  for (int n : in.noc) classes_present += n > 0;
  write_fmt(out, "(a,i7)", {" Number of learning samples =", in.nobs});
  write_fmt(out, "(a,i7)", {" Number of classes =", classes_present});
  write_fmt(out, "(a,i7)", {" Number of numerical variables =", in.nvar - in.ncat});
  write_fmt(out, "(a,i7)", {" Number of categorical variables =", in.ncat});
  write_fmt(out, "(a,i7)", {" Cases with 1 or more missing values=", cases_with_missing()});
  write_fmt(out, "(a,2x,f5.2,a)", {" Percentage of missing values=", missing_percentage(), "%"});
  write_list(std::cout, {});
  write_list(out, {});

  write_split_type(out, in);
  const FArray<int> indx = class_order(in.clabel);
  const int w = label_width(in.clabel);
  write_priors(out, in, indx, w);
  write_costs(out, in, indx, w);

  write_fmt(out, "(a)", {" Imputation option for building trees: "}, Advance::no);
  write_fmt(out, "(a)", {build_imputation(in)});

  if (in.treesize == 1) {
    write_fmt(out, "(a)",
              {in.prunetype == 1 ? " Tree size determination: Pruning by cross-validation"
                                 : " Tree size determination: Pruning by test data"});
    write_fmt(out, "(a,g10.2)", {" S.E. rule used = ", in.serule});
  } else {
    write_fmt(out, "(a)", {" Tree size determination: Direct Stopping"});
  }
  write_fmt(out, "(a,i7)", {" Minimum size of each node (mindat): ", in.mindat});
  if (in.testtype == 1) write_fmt(out, "(a)", {" Overall cross-validation error cost computed"});
  if (in.testtype == 2) {
    write_fmt(out, "(a)", {" Overall test sample error cost computed"});
    write_fmt(out, "(a,a)", {" Test data file is: ", trim(in.testfile)});
  }
  if (in.testtype == 1 || in.prunetype == 1)
    write_fmt(out, "(a,i7)", {" Number of folds for cross-validation: ", in.folds});
  if (prune_imputation_asked(in)) {
    write_fmt(out, "(a)", {" Imputation option for test, CV, or pruning sample: "}, Advance::no);
    write_fmt(out, "(a)", {prune_imputation(in.impprune)});
  }
  write_list(out, {});
}

}  // namespace vardel
