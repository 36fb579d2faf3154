#include "prune/test_cost.hpp"

#include "run/init.hpp"

namespace vardel {
namespace {

// Prior option of priors estimated from the sample.
constexpr int kEstimated = 2;

}  // namespace

FArray<int> column_sums(const FArray<int>& q) {
  const auto k = q.extent1();
  FArray<int> noc(k, 0);
  for (FArray<int>::Index j = 1; j <= k; ++j)
    for (FArray<int>::Index i = 1; i <= k; ++i) noc(j) += q(i, j);
  return noc;
}

TestCost test_cost(const FArray<int>& q, int n) {
  const Init& in = init();
  const int k = in.nclass;
  const FArray<int> noc = column_sums(q);
  const double dn = static_cast<double>(n);
  double a = 0.0;
  double b = 0.0;
  for (int j = 1; j <= k; ++j) {
    double t1 = 0.0;
    double t2 = 0.0;
    for (int i = 1; i <= k; ++i) {
      const double c = in.cost(i, j);
      const double count = static_cast<double>(q(i, j));
      t1 = t1 + c * count;
      t2 = t2 + c * c * count;
    }
    if (in.priortype == kEstimated) {
      a = a + t1 / dn;
      b = b + t2 / dn;
    } else {
      const double nj = static_cast<double>(noc(j));
      a = a + t1 / nj * in.prob(j);
      b = b + t2 / nj * in.prob(j);
    }
  }
  return {a, (b - a * a) / dn};
}

}  // namespace vardel
