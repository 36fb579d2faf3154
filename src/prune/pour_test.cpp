#include "prune/pour_test.hpp"

#include <stdexcept>
#include <string>

#include "run/init.hpp"
#include "tree/tree_store.hpp"

namespace vardel {
namespace {

// Only the univariate walk (split type 1) is built so far.
void require_univariate_walk() {
  if (init().splittype == 1) return;
  // Linear-combination (2) and bivariate-model (3) walks are not built yet.
  throw std::logic_error("pour_test: no walk for split type " + std::to_string(init().splittype));
}

}  // namespace

std::optional<Landing> land_case(const PourTree& tree, FArray<double>& x, const FArray<char>& mis,
                                 int row, PourWork& work) {
  require_univariate_walk();
  return tree.land(x, mis, row, work);
}

std::optional<Landing> land_case(FArray<double>& x, const FArray<char>& mis, int row,
                                 PourWork& work) {
  require_univariate_walk();
  return PourTree(tree_store()).land(x, mis, row, work);
}

void pour_test(FArray<int>& table, FArray<double>& x, std::span<const int> y,
               const FArray<char>& mis, int n) {
  const int k = init().nclass;
  PourWork work(k);
  FArray<int> py(n, 0);
  if (n >= 1) {
    require_univariate_walk();
    const PourTree tree(tree_store());
    for (int row = 1; row <= n; ++row) {
      const std::optional<Landing> landing = tree.land(x, mis, row, work);
      if (!landing) return;
      py(row) = landing->iclass;
    }
  }
  tally_classes(table, y, py, k);
}

void tally_classes(FArray<int>& table, std::span<const int> y, const FArray<int>& py, int nclass) {
  table.assign(nclass, nclass, 0);
  for (int row = 1; row <= py.size(); ++row) {
    const int actual = y[static_cast<std::size_t>(row - 1)];
    const int predicted = py(row);
    if (actual < 1 || actual > nclass || predicted < 1 || predicted > nclass) continue;
    ++table(predicted, actual);
  }
}

}  // namespace vardel
