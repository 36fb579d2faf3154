#include "prune/pour_test.hpp"

#include <stdexcept>
#include <string>

#include "prune/impute_split.hpp"
#include "run/init.hpp"
#include "tree/tree_store.hpp"

namespace vardel {
namespace {

// Split type 1: one variable per split node, missing values handled by the
// rule of impute_split_value.
std::optional<Landing> land_univariate(FArray<double>& x, const FArray<char>& mis, int row,
                                       PourWork& work) {
  const Init& in = init();
  TreeStore& store = tree_store();
  int t = 1;
  for (;;) {
    const TreeStore::Retrieved node = store.retrieve(t);
    if (!node.found) return std::nullopt;
    const FView<double>& y = node.y;
    const int iclass = read_record_int(y, 2);
    if (node.children.empty()) return Landing{t, iclass};
    const int var = read_record_int(y, in.pos.var_pos);
    if (mis(row, var) == 'y' && !impute_split_value(y, x, mis, row, var, work)) {
      return Landing{t, iclass};
    }
    t = child_node(t, univariate_child(y, x(row, var)), in.nclass);
  }
}

}  // namespace

std::optional<Landing> land_case(FArray<double>& x, const FArray<char>& mis, int row,
                                 PourWork& work) {
  switch (init().splittype) {
    case 1:
      return land_univariate(x, mis, row, work);
    default:
      // Linear-combination (2) and bivariate-model (3) walks are not built yet.
      throw std::logic_error("pour_test: no walk for split type " +
                             std::to_string(init().splittype));
  }
}

void pour_test(FArray<int>& table, FArray<double>& x, std::span<const int> y,
               const FArray<char>& mis, int n) {
  const int k = init().nclass;
  PourWork work(k);
  FArray<int> py(n, 0);
  for (int row = 1; row <= n; ++row) {
    const std::optional<Landing> landing = land_case(x, mis, row, work);
    if (!landing) return;
    py(row) = landing->iclass;
  }
  table.assign(k, k, 0);
  for (int row = 1; row <= n; ++row) {
    const int actual = y[static_cast<std::size_t>(row - 1)];
    const int predicted = py(row);
    if (actual < 1 || actual > k || predicted < 1 || predicted > k) continue;
    ++table(predicted, actual);
  }
}

}  // namespace vardel
