// Cost and SE of each subtree from the summed class tables, and the SE rule
// (see cv_costs.hpp).
#include "prune/cv_costs.hpp"

#include <cmath>
#include <limits>

namespace vardel {
namespace {

// A first pruning step with a cost-complexity below this costs nothing.
constexpr double kEps = 2.220446049250313e-16;
// Margin by which the largest tree's cost is raised above subtree 1's when
// the first step is free: single-precision 0.01, widened to double.
constexpr double kLargestPenalty = 0.009999999776482582;
// Prior option of priors estimated from the sample.
constexpr int kEstimated = 2;

}  // namespace

std::vector<SubtreeCost> subtree_costs(const ClassTables& table, const FArray<double>& cost,
                                       int priortype, const FArray<double>& prob,
                                       const FArray<int>& noc, int nobs) {
  const int k = table.nclass();
  const double n = static_cast<double>(nobs);
  std::vector<SubtreeCost> out(static_cast<std::size_t>(table.nsubtrees() + 1));
  for (int s = 0; s <= table.nsubtrees(); ++s) {
    double total = 0.0;
    double m = 0.0;
    for (int j = 1; j <= k; ++j) {
      // First and second moments of the cost of the class-j cases.
      double t1 = 0.0;
      double t2 = 0.0;
      for (int i = 1; i <= k; ++i) {
        const double c = cost(i, j);
        const double count = static_cast<double>(table(i, j, s));
        t1 += c * count;
        t2 += c * c * count;
      }
      if (priortype == kEstimated) {
        total += t1 / n;
        m += t2 / n;
      } else {
        const double nj = static_cast<double>(noc(j));
        total += t1 * prob(j) / nj;
        m += t2 * prob(j) / nj;
      }
    }
    auto& r = out[static_cast<std::size_t>(s)];
    r.total = total;
    r.se = std::sqrt((m - total * total) / n);
  }
  return out;
}

TreeChoice choose_tree(std::vector<SubtreeCost>& costs, double talpha0_1, double serule) {
  const int nsub = static_cast<int>(costs.size()) - 1;
  if (talpha0_1 < kEps && nsub >= 1) costs[0].total = costs[1].total + kLargestPenalty;

  TreeChoice choice;
  double best = std::numeric_limits<double>::max();
  for (int s = 0; s <= nsub; ++s) {
    if (best >= costs[static_cast<std::size_t>(s)].total) {
      best = costs[static_cast<std::size_t>(s)].total;
      choice.zero_se = s;
    }
  }

  const auto& z = costs[static_cast<std::size_t>(choice.zero_se)];
  const double b = serule * z.se + z.total;
  choice.given_se = choice.zero_se;
  for (int s = nsub; s >= 0; --s) {
    if (costs[static_cast<std::size_t>(s)].total <= b) {
      choice.given_se = s;
      break;
    }
  }
  return choice;
}

}  // namespace vardel
