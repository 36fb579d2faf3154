#include "report/table_cost.hpp"

#include <cmath>

namespace vardel {

CostAndSe table_cost(const FArray<int>& table, const FArray<int>& counts,
                     const FArray<double>& prob, const FArray<double>& cost) {
  const auto k = counts.size();
  double total = 0.0;
  double variance = 0.0;
  for (FArray<int>::Index j = 1; j <= k; ++j) {
    double t1 = 0.0;
    double t2 = 0.0;
    for (FArray<int>::Index i = 1; i <= k; ++i) {
      const double c = cost(i, j);
      const double n_ij = table(i, j);
      t1 = t1 + c * n_ij;
      t2 = t2 + c * c * n_ij;
    }
    const double n = counts(j);
    total = total + prob(j) * t1 / n;
    const double mean = t1 / n;
    variance = variance + prob(j) * prob(j) / n * (t2 / n - mean * mean);
  }
  return {total, std::sqrt(variance)};
}

}  // namespace vardel
