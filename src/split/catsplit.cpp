// Category lists of a categorical split (see catsplit.hpp).
#include "split/catsplit.hpp"

#include "numerics/indexx.hpp"

namespace vardel {

void catsplit(std::span<const double> a, std::span<const double> cutpt, FArray<int>& ncutcat,
              FArray<int>& cutcat1) {
  const int nc = static_cast<int>(a.size());
  const int nclass = static_cast<int>(cutpt.size()) + 1;
  FView<const double> av(a);
  FView<const double> cut(cutpt);

  cutcat1.assign(nc, 0);
  indexx(a, cutcat1.span());

  ncutcat.assign(nclass, 0);
  int counted = 0;
  for (int k = 1; k <= nclass - 1; ++k) {
    int below = 0;
    for (int j = 1; j <= nc; ++j) {
      if (av(j) <= cut(k)) ++below;
    }
    ncutcat(k) = below - counted;
    counted = counted + ncutcat(k);
  }
  ncutcat(nclass) = nc - counted;
}

}  // namespace vardel
