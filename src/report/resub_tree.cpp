// resub_tree: the resubstitution classification table of a subtree.
#include <cmath>
#include <vector>

#include "report/cost_report.hpp"
#include "run/init.hpp"
#include "tree/tree_store.hpp"

namespace vardel {

void resub_tree(int t, FArray<int>& table) {
  const TreeStore::Retrieved node = tree_store().retrieve(t);
  if (!node.found) return;
  if (!node.children.empty()) {
    // The next retrieve overwrites the list.
    const std::vector<int> children(node.children.begin(), node.children.end());
    for (const int child : children) resub_tree(child, table);
    return;
  }
  const Init& in = init();
  const int iclass = static_cast<int>(std::lround(node.y(2)));
  if (iclass == 0) return;
  for (int j = 1; j <= in.nclass; ++j)
    table(iclass, j) += static_cast<int>(std::lround(node.y(in.pos.noc_pos + j - 1)));
}

}  // namespace vardel
