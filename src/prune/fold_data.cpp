// Splitting the sample by fold, and the priors of a fold (see fold_data.hpp).
#include "prune/fold_data.hpp"

#include <algorithm>

#include "numerics/parallel_for.hpp"

namespace vardel {

namespace {

// One column of the sample into the learning and test parts, in case order.
template <class T>
void copy_by_fold(int fold, FView<const int> fold_of, std::span<const T> from, std::span<T> learn,
                  std::span<T> test) {
  std::size_t il = 0;
  std::size_t it = 0;
  for (std::size_t i = 0; i < from.size(); ++i) {
    if (fold_of(static_cast<FArray<int>::Index>(i + 1)) != fold)
      learn[il++] = from[i];
    else
      test[it++] = from[i];
  }
}

}  // namespace

int fold_learning_count(int fold, std::span<const int> mcv) {
  return static_cast<int>(
      std::count_if(mcv.begin(), mcv.end(), [fold](int f) { return f != fold; }));
}

FoldData select_prune_cv_data(int fold, std::span<const int> mcv, const FArray<double>& x,
                              std::span<const int> y, const FArray<char>& mis) {
  const auto n = static_cast<FArray<int>::Index>(mcv.size());
  const auto p = x.extent2();
  const int nlearn = fold_learning_count(fold, mcv);
  const auto ntest = n - nlearn;
  FView<const int> fold_of(mcv);
  FView<const int> cls(y);

  FoldData d;
  d.x.assign(nlearn, p, 0.0);
  d.y.assign(nlearn, 0);
  d.mis.assign(nlearn, p, 'n');
  d.termnode.assign(nlearn, 1);
  d.xcv.assign(ntest, p, 0.0);
  d.ycv.assign(ntest, 0);
  d.miscv.assign(ntest, p, 'n');

  // Classes first, then the tables column by column (the storage order).
  FArray<int>::Index il = 0;
  FArray<int>::Index it = 0;
  for (FArray<int>::Index i = 1; i <= n; ++i) {
    if (fold_of(i) != fold)
      d.y(++il) = cls(i);
    else
      d.ycv(++it) = cls(i);
  }
  parallel_for(1, p, static_cast<std::size_t>(n), [&](FArray<int>::Index j) {
    copy_by_fold(fold, fold_of, x.column(j), d.x.column(j), d.xcv.column(j));
    copy_by_fold(fold, fold_of, mis.column(j), d.mis.column(j), d.miscv.column(j));
  });
  return d;
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
