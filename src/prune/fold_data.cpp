// Splitting the sample by fold, and the priors of a fold (see fold_data.hpp).
#include "prune/fold_data.hpp"

#include <algorithm>

#include "numerics/parallel_for.hpp"

namespace vardel {

namespace {

// The cases of one column whose fold is `fold` (in_fold) or is not, in
// case order.
template <class T>
void copy_by_fold(int fold, bool in_fold, FView<const int> fold_of, std::span<const T> from,
                  std::span<T> to) {
  std::size_t k = 0;
  for (std::size_t i = 0; i < from.size(); ++i) {
    if ((fold_of(static_cast<FArray<int>::Index>(i + 1)) == fold) == in_fold) to[k++] = from[i];
  }
}

// The part of the sample in the fold (in_fold) or outside it: classes, then
// the tables column by column (the storage order), one column per task.
void select_part(int fold, bool in_fold, std::span<const int> mcv, const FArray<double>& x,
                 std::span<const int> y, const FArray<char>& mis, FArray<double>& xpart,
                 FArray<int>& ypart, FArray<char>& mispart) {
  const auto n = static_cast<FArray<int>::Index>(mcv.size());
  const auto p = x.extent2();
  const int nlearn = fold_learning_count(fold, mcv);
  const auto rows = in_fold ? n - nlearn : nlearn;
  FView<const int> fold_of(mcv);
  FView<const int> cls(y);
  xpart.assign(rows, p, 0.0);
  ypart.assign(rows, 0);
  mispart.assign(rows, p, 'n');
  FArray<int>::Index k = 0;
  for (FArray<int>::Index i = 1; i <= n; ++i) {
    if ((fold_of(i) == fold) == in_fold) ypart(++k) = cls(i);
  }
  parallel_for(1, p, static_cast<std::size_t>(n), [&](FArray<int>::Index j) {
    copy_by_fold(fold, in_fold, fold_of, x.column(j), xpart.column(j));
    copy_by_fold(fold, in_fold, fold_of, mis.column(j), mispart.column(j));
  });
}

}  // namespace

int fold_learning_count(int fold, std::span<const int> mcv) {
  return static_cast<int>(
      std::count_if(mcv.begin(), mcv.end(), [fold](int f) { return f != fold; }));
}

FoldData select_prune_cv_data(int fold, std::span<const int> mcv, const FArray<double>& x,
                              std::span<const int> y, const FArray<char>& mis) {
  FoldData d = select_fold_learning(fold, mcv, x, y, mis);
  select_fold_test(fold, mcv, x, y, mis, d);
  return d;
}

FoldData select_fold_learning(int fold, std::span<const int> mcv, const FArray<double>& x,
                              std::span<const int> y, const FArray<char>& mis) {
  FoldData d;
  select_part(fold, false, mcv, x, y, mis, d.x, d.y, d.mis);
  d.termnode.assign(d.nlearn(), 1);
  return d;
}

void select_fold_test(int fold, std::span<const int> mcv, const FArray<double>& x,
                      std::span<const int> y, const FArray<char>& mis, FoldData& d) {
  select_part(fold, true, mcv, x, y, mis, d.xcv, d.ycv, d.miscv);
}

FArray<double> fold_priors(int priortype, std::span<const int> y, int nclass,
                           const FArray<double>& run_prob) {
  // Prior option of priors estimated from the sample.
  constexpr int kEstimated = 2;
  if (priortype != kEstimated) return run_prob;

  FArray<int> count(nclass, 0);
  for (int c : y) ++count(c);
  const auto nlearn = static_cast<double>(y.size());
  FArray<double> prob(nclass, 0.0);
  for (int j = 1; j <= nclass; ++j) prob(j) = static_cast<double>(count(j)) / nlearn;
  return prob;
}

}  // namespace vardel
