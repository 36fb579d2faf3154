#include "split/getpjlt.hpp"

#include "run/init.hpp"

namespace vardel {

FArray<double> class_weights(std::span<const double> prob) {
  const Init& in = init();
  FView<const double> pr(prob);
  const int k_classes = static_cast<int>(pr.size());
  FArray<double> w(k_classes, 0.0);
  if (in.costtype == 2) {
    double total = 0.0;
    for (int k = 1; k <= k_classes; ++k) {
      double column = 0.0;
      for (int j = 1; j <= k_classes; ++j) column += in.cost(j, k);
      w(k) = pr(k) * column;
      total += w(k);
    }
    for (int k = 1; k <= k_classes; ++k) w(k) = w(k) / total;
  } else {
    for (int k = 1; k <= k_classes; ++k) w(k) = pr(k);
  }
  return w;
}

void getpjlt_weighted(std::span<const int> counts, std::span<const int> csize,
                      std::span<const double> weights, std::span<double> pjlt) {
  FView<const int> cnt(counts);
  FView<const int> cs(csize);
  FView<const double> w(weights);
  FView<double> q(pjlt);
  const int k_classes = static_cast<int>(q.size());
  double total = 0.0;
  for (int k = 1; k <= k_classes; ++k) {
    double p = 0.0;
    if (cs(k) != 0) p = static_cast<double>(cnt(k)) / static_cast<double>(cs(k));
    q(k) = p * w(k);
    total += q(k);
  }
  for (int k = 1; k <= k_classes; ++k) q(k) = q(k) / total;
}

FArray<double> getpjlt(std::span<const int> counts, std::span<const int> csize,
                       std::span<const double> prob) {
  const FArray<double> w = class_weights(prob);
  FArray<double> pjlt(static_cast<FArray<double>::Index>(counts.size()), 0.0);
  getpjlt_weighted(counts, csize, w.span(), pjlt.span());
  return pjlt;
}

}  // namespace vardel
