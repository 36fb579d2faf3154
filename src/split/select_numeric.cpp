// select1, select3, select5: choosing among the numerical predictors by the F
// ratio of between- to within-class mean squares.
#include "split/select_numeric.hpp"

#include <vector>

#include "numerics/fprob.hpp"

namespace vardel {
namespace {

struct FRatio {
  double f = 0.0;
  bool perfect = false;  // mse vanished while mst did not
};

FRatio f_ratio(const Moments& mom, int j) {
  if (mom.mst(j) < kTiny) return {};
  // Every class present has a single case: no within-class degrees of freedom.
  if (mom.n_used(j) - mom.m_used(j) <= 0) return {};
  if (mom.mse(j) < kTiny) return {kHugeF, true};
  return {mom.mst(j) / mom.mse(j), false};
}

}  // namespace

double f_test_p(int m, int n, double f) {
  double p = 1.0;
  double q = 0.0;
  int status = 0;
  fprob(m - 1, n - m, f, p, q, status);
  return status != 0 ? 1.0 : p;
}

Pick select1(const Moments& mom, std::span<const char> vtype) {
  FView<const char> type(vtype);
  Pick best;
  best.stat = -1.0;
  for (int j = 1; j <= type.size(); ++j) {
    if (type(j) != 'n') continue;
    const FRatio r = f_ratio(mom, j);
    if (r.perfect) return {j, 0.0, kHugeF};
    if (r.f > best.stat) {
      best.var = j;
      best.stat = r.f;
    }
  }
  if (best.var == 0) return {};
  best.p = f_test_p(mom.m_used(best.var), mom.n_used(best.var), best.stat);
  return best;
}

Pick select3(const Moments& mom, std::span<const char> vtype) {
  FView<const char> type(vtype);
  Pick best{0, kUntestedP, 0.0};
  for (int j = 1; j <= type.size(); ++j) {
    if (type(j) != 'n') continue;
    const FRatio r = f_ratio(mom, j);
    if (r.perfect) return {j, 0.0, kHugeF};
    const double p = f_test_p(mom.m_used(j), mom.n_used(j), r.f);
    if (displaces(p, r.f, best)) best = {j, p, r.f};
  }
  if (best.var == 0) return {};
  return best;
}

TwoBest select5(const Moments& mom, std::span<const char> vtype) {
  FView<const char> type(vtype);
  const auto nvar = static_cast<std::size_t>(type.size());
  std::vector<double> p(nvar, kUntestedP);
  std::vector<double> f(nvar, 0.0);
  for (int j = 1; j <= type.size(); ++j) {
    if (type(j) != 'n') continue;
    const FRatio r = f_ratio(mom, j);
    const auto at = static_cast<std::size_t>(j - 1);
    f[at] = r.f;
    if (r.perfect) {
      p[at] = 0.0;
    } else if (r.f == 0.0) {
      p[at] = 1.0;
    } else {
      p[at] = f_test_p(mom.m_used(j), mom.n_used(j), r.f);
    }
  }
  return rank_first_two(p, f, vtype, 'n');
}

}  // namespace vardel
