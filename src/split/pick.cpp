// Ranking of the first two variables of a test, by p and, when both have
// underflowed, by the statistic.
#include "split/pick.hpp"

#include <vector>

#include "numerics/farray.hpp"
#include "numerics/indexx.hpp"

namespace vardel {

TwoBest rank_first_two(std::span<const double> p, std::span<const double> stat,
                       std::span<const char> vtype, char kind) {
  const int nvar = static_cast<int>(p.size());
  TwoBest best;
  if (nvar == 0) return best;
  FView<const double> pv(p);
  FView<const double> sv(stat);
  FView<const char> type(vtype);
  std::vector<int> order(static_cast<std::size_t>(nvar));
  FView<int> index(order);

  indexx(p, order);
  int first = index(1);
  int second = nvar >= 2 ? index(2) : 0;
  if (second != 0 && pv(first) < kTiny && pv(second) < kTiny) {
    indexx(stat, order);
    first = index(nvar);
    second = index(nvar - 1);
  }
  best.first = {first, pv(first), sv(first)};
  if (second == 0) {
    best.second = {first, kUntestedP, 0.0};
  } else {
    best.second = {second, pv(second), sv(second)};
    if (type(second) != kind) best.second.var = first;
  }
  return best;
}

}  // namespace vardel
