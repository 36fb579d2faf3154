// The node lists of pruning: fill_arrays walks the tree in the store,
// fill_cost derives the link strengths, prune_children cuts below a node.
#include "prune/prune_arrays.hpp"

#include <limits>
#include <span>
#include <vector>

#include "numerics/farray.hpp"
#include "run/init.hpp"
#include "tree/tree_store.hpp"

namespace vardel {
namespace {

// Strengths below the smallest normal double, negative ones included, are 0.
constexpr double kTinyAlpha = std::numeric_limits<double>::min();

void append_node(TreeStore& store, int node) {
  TreeStore::Retrieved r = store.retrieve(node);
  if (!r.found) return;
  PruneArrays& pa = prune_arrays();
  const bool terminal = r.children.empty();
  pa.nid.push_back(node);
  pa.nstat.push_back(terminal ? 1 : 0);
  pa.nstattrue.push_back(!terminal ? 0 : (r.y(1) > 0.0 ? 1 : 2));
  pa.ncost.push_back(r.y(3));
  ++pa.count;
  // The child list is overwritten by the next retrieve: keep a copy.
  const std::vector<int> children(r.children.begin(), r.children.end());
  for (const int child : children) append_node(store, child);
}

}  // namespace

PruneArrays& prune_arrays() {
  static PruneArrays instance;
  return instance;
}

void fill_arrays(int node) {
  PruneArrays& pa = prune_arrays();
  const auto n = static_cast<std::size_t>(pa.count);
  pa.nid.resize(n);
  pa.nstat.resize(n);
  pa.nstattrue.resize(n);
  pa.ncost.resize(n);
  append_node(tree_store(), node);
}

void refill_arrays() {
  prune_arrays().count = 0;
  fill_arrays(1);
}

void fill_cost() {
  PruneArrays& pa = prune_arrays();
  const int n = pa.count;
  const int k = init().nclass;
  pa.snodes.assign(static_cast<std::size_t>(n), 0);
  pa.scost.assign(static_cast<std::size_t>(n), 0.0);
  pa.nalpha.assign(static_cast<std::size_t>(n), 0.0);
  const FView<const int> nid{std::span<const int>(pa.nid)};
  const FView<const int> nstat{std::span<const int>(pa.nstat)};
  const FView<const double> ncost{std::span<const double>(pa.ncost)};
  const FView<int> snodes{std::span<int>(pa.snodes)};
  const FView<double> scost{std::span<double>(pa.scost)};
  const FView<double> nalpha{std::span<double>(pa.nalpha)};

  for (int i = 1; i <= n; ++i) {
    if (nstat(i) != 0) continue;
    // Every descendant has a larger number than the node, so the walk ends at
    // the first smaller one. Later siblings' subtrees may come before that;
    // the walk up by the parent rule tells descendants from them.
    for (int j = i + 1; j <= n && nid(j) >= nid(i); ++j) {
      if (nstat(j) != 1) continue;
      int t = nid(j);
      while (t > nid(i)) t = (t - 2) / k + 1;
      if (t == nid(i)) {
        snodes(i) += 1;
        scost(i) += ncost(j);
      }
    }
    nalpha(i) = (ncost(i) - scost(i)) / static_cast<double>(snodes(i) - 1);
    if (!(nalpha(i) >= kTinyAlpha)) nalpha(i) = 0.0;
  }
}

void prune_children(int t, bool descending) {
  const int k = init().nclass;
  TreeStore& store = tree_store();
  for (int c = 1; c <= k; ++c) {
    const int kk = descending ? k + 1 - c : c;
    store.remove_node((t - 1) * k + 1 + kk);
  }
}

}  // namespace vardel
