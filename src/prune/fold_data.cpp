// Splitting the sample by fold, and the priors of a fold (see fold_data.hpp).
#include "prune/fold_data.hpp"

#include <algorithm>
#include <vector>

#include "numerics/parallel_for.hpp"

namespace vardel {

namespace {

// The rows of one column given by `rows` (counted from 0), in that order.
template <class T>
void copy_rows(const std::vector<std::size_t>& rows, std::span<const T> from, std::span<T> to) {
  for (std::size_t k = 0; k < rows.size(); ++k) to[k] = from[rows[k]];
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
  // Every row is copied below: storage handed on from the fold before is
  // reused as it stands, not cleared first.
  xpart.reshape_for_overwrite(rows, p, 0.0);
  ypart.reshape_for_overwrite(rows, 1, 0);
  mispart.reshape_for_overwrite(rows, p, 'n');
  std::vector<std::size_t> chosen;
  chosen.reserve(static_cast<std::size_t>(rows));
  for (FArray<int>::Index i = 1; i <= n; ++i) {
    if ((fold_of(i) == fold) == in_fold) chosen.push_back(static_cast<std::size_t>(i - 1));
  }
  for (std::size_t k = 0; k < chosen.size(); ++k)
    ypart(static_cast<FArray<int>::Index>(k + 1)) =
        cls(static_cast<FArray<int>::Index>(chosen[k] + 1));
  parallel_for(1, p, static_cast<std::size_t>(rows), [&](FArray<int>::Index j) {
    copy_rows(chosen, x.column(j), xpart.column(j));
    copy_rows(chosen, mis.column(j), mispart.column(j));
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
  select_fold_learning(fold, mcv, x, y, mis, d);
  return d;
}

void select_fold_learning(int fold, std::span<const int> mcv, const FArray<double>& x,
                          std::span<const int> y, const FArray<char>& mis, FoldData& d) {
  select_part(fold, false, mcv, x, y, mis, d.x, d.y, d.mis);
  d.termnode.assign(d.nlearn(), 1);
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
