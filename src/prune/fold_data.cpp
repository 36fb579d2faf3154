// Splitting the sample by fold, and the priors of a fold (see fold_data.hpp).
#include "prune/fold_data.hpp"

#include <algorithm>

namespace vardel {

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

  FArray<int>::Index il = 0;
  FArray<int>::Index it = 0;
  for (FArray<int>::Index i = 1; i <= n; ++i) {
    if (fold_of(i) != fold) {
      ++il;
      d.y(il) = cls(i);
      for (FArray<int>::Index j = 1; j <= p; ++j) {
        d.x(il, j) = x(i, j);
        d.mis(il, j) = mis(i, j);
      }
    } else {
      ++it;
      d.ycv(it) = cls(i);
      for (FArray<int>::Index j = 1; j <= p; ++j) {
        d.xcv(it, j) = x(i, j);
        d.miscv(it, j) = mis(i, j);
      }
    }
  }
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
