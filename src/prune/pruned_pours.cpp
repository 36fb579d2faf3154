#include "prune/pruned_pours.hpp"

#include <optional>

#include "prune/pour_test.hpp"
#include "prune/pour_tree.hpp"
#include "run/init.hpp"
#include "tree/tree_store.hpp"

namespace vardel {

// Walks every case and keeps its path; false (nothing kept) when a walk
// meets a node that is not in the store.
bool PrunedPours::first_pour(FArray<int>& py, FArray<double>& x, const FArray<char>& mis, int n) {
  const PourTree tree(tree_store());
  PourWork work(init().nclass);
  start_.assign(1, 0);
  path_.clear();
  for (int row = 1; row <= n; ++row) {
    if (!tree.land(x, mis, row, work, path_)) return false;
    py(row) = tree.node_class(path_.back());
    start_.push_back(static_cast<int>(path_.size()));
  }
  ids_.clear();
  classes_.clear();
  for (int place = 0; place < tree.size(); ++place) {
    ids_.push_back(tree.node_id(place));
    classes_.push_back(tree.node_class(place));
  }
  return true;
}

void PrunedPours::pour(FArray<int>& table, FArray<double>& x, std::span<const int> y,
                       const FArray<char>& mis, int n) {
  const int k = init().nclass;
  if (n < 1 || init().splittype != 1) {
    pour_test(table, x, y, mis, n);
    return;
  }
  if (!walked_) {
    FArray<int> py(n, 0);
    if (!first_pour(py, x, mis, n)) {
      pour_test(table, x, y, mis, n);  // ends where the first walk ended
      return;
    }
    walked_ = true;
    group_landings(y, n, k);
    tally_classes(table, y, py, k);
    return;
  }

  // Which kept nodes are still in the store, and which of them are terminal.
  TreeStore& store = tree_store();
  std::vector<char> present(ids_.size());
  std::vector<char> terminal(ids_.size());
  for (std::size_t place = 0; place < ids_.size(); ++place) {
    present[place] = store.contains(ids_[place]);
    terminal[place] = present[place] && store.retrieve(ids_[place]).children.empty();
  }
  // Cases that landed on the same node in the first pour share their path:
  // one walk per such node settles them all.
  FArray<int> tally(k, k, 0);
  for (std::size_t l = 0; l < landing_row_.size(); ++l) {
    const int row = landing_row_[l];
    const int end = start_[static_cast<std::size_t>(row)];
    int predicted = 0;
    for (int i = start_[static_cast<std::size_t>(row - 1)]; i < end; ++i) {
      const auto place = static_cast<std::size_t>(path_[static_cast<std::size_t>(i)]);
      if (!present[place]) {
        pour_test(table, x, y, mis, n);
        return;
      }
      if (terminal[place] || i == end - 1) {
        predicted = classes_[place];
        break;
      }
    }
    if (predicted < 1 || predicted > k) continue;
    for (int actual = 1; actual <= k; ++actual)
      tally(predicted, actual) +=
          landing_count_[l * static_cast<std::size_t>(k) + static_cast<std::size_t>(actual - 1)];
  }
  table = std::move(tally);
}

// Groups the cases by the node where the first pour landed them, with the
// cases of each class (classes outside 1..k are not tallied).
void PrunedPours::group_landings(std::span<const int> y, int n, int k) {
  std::vector<int> landing_of(ids_.size(), -1);
  landing_row_.clear();
  landing_count_.clear();
  for (int row = 1; row <= n; ++row) {
    const int first = start_[static_cast<std::size_t>(row - 1)];
    const int end = start_[static_cast<std::size_t>(row)];
    if (first == end) continue;
    const auto place = static_cast<std::size_t>(path_[static_cast<std::size_t>(end - 1)]);
    if (landing_of[place] < 0) {
      landing_of[place] = static_cast<int>(landing_row_.size());
      landing_row_.push_back(row);
      landing_count_.insert(landing_count_.end(), static_cast<std::size_t>(k), 0);
    }
    const int actual = y[static_cast<std::size_t>(row - 1)];
    if (actual < 1 || actual > k) continue;
    ++landing_count_[static_cast<std::size_t>(landing_of[place]) * static_cast<std::size_t>(k) +
                     static_cast<std::size_t>(actual - 1)];
  }
}

}  // namespace vardel
