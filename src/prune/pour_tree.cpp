#include "prune/pour_tree.hpp"

#include <cmath>

#include "numerics/round_to_long.hpp"
#include "prune/impute_split.hpp"
#include "run/init.hpp"

namespace vardel {
namespace {

// Test entry of a split won on its spread (Levene test) under the 1D method.
constexpr int kLeveneTest = 'L';
// varsel of the 1D method: only there is an "L" split made on |x - gmean|.
constexpr int kVarsel1D = 2;

}  // namespace

PourTree::PourTree(TreeStore& store) {
  const Init& in = init();
  nclass_ = in.nclass;
  cut_pos_ = in.pos.cut_pos;
  // Breadth first from the root; a child number that is not in the store
  // keeps the place -1, where a walk ends without a landing.
  std::vector<int> ids;
  if (store.contains(1)) ids.push_back(1);
  for (std::size_t i = 0; i < ids.size(); ++i) {
    const TreeStore::Retrieved r = store.retrieve(ids[i]);
    Node node;
    node.id = ids[i];
    node.y = r.y;
    node.iclass = read_record_int(r.y, 2);
    node.terminal = r.children.empty();
    if (!node.terminal) {
      const FView<double>& y = r.y;
      node.var = read_record_int(y, in.pos.var_pos);
      node.categorical = in.vtype(node.var) == 'c';
      if (node.categorical) {
        const int c = read_record_int(y, in.pos.gmean_pos);
        const int ncodes = in.numcat(c);
        node.first_listed = static_cast<int>(listed_.size());
        int listed = 0;  // codes passed so far, in all earlier subnodes
        for (int k = 1; k <= nclass_; ++k) {
          const int count = read_record_int(y, in.pos.cut_pos + k - 1);
          for (int m = 1; m <= count && listed < ncodes; ++m) {
            ++listed;
            listed_.emplace_back(read_record_int(y, in.pos.cutcat_pos + listed - 1), k);
          }
        }
        node.nlisted = listed;
      } else {
        node.absolute =
            read_record_int(y, in.pos.test_pos) == kLeveneTest && in.varsel == kVarsel1D;
        node.gmean = y(in.pos.gmean_pos);
      }
      node.first_child = static_cast<int>(child_.size());
      for (int k = 1; k <= nclass_; ++k) {
        const int id = child_node(node.id, k, nclass_);
        if (id != 0 && store.contains(id)) {
          child_.push_back(static_cast<int>(ids.size()));
          ids.push_back(id);
        } else {
          child_.push_back(-1);
        }
      }
    }
    nodes_.push_back(node);
  }
}

int PourTree::child_of(const Node& node, double x) const {
  if (node.categorical) {
    const long code = round_to_long(x);
    for (int i = 0; i < node.nlisted; ++i) {
      const std::pair<long, int>& entry = listed_[static_cast<std::size_t>(node.first_listed + i)];
      if (entry.first == code) return entry.second;
    }
    return nclass_;
  }
  if (node.absolute) x = std::fabs(x - node.gmean);
  // A zero tail of unused points may catch a non-positive x: the scan stops
  // at the first point not below x, as the split was made.
  for (int k = 1; k <= nclass_ - 1; ++k) {
    if (x <= node.y(cut_pos_ + k - 1)) return k;
  }
  return nclass_;
}

std::optional<Landing> PourTree::land(FArray<double>& x, const FArray<char>& mis, int row,
                                      PourWork& work) const {
  return walk(x, mis, row, work, nullptr);
}

std::optional<Landing> PourTree::land(FArray<double>& x, const FArray<char>& mis, int row,
                                      PourWork& work, std::vector<int>& path) const {
  return walk(x, mis, row, work, &path);
}

std::optional<Landing> PourTree::walk(FArray<double>& x, const FArray<char>& mis, int row,
                                      PourWork& work, std::vector<int>* path) const {
  if (nodes_.empty()) return std::nullopt;
  std::size_t at = 0;
  for (;;) {
    const Node& node = nodes_[at];
    if (path != nullptr) path->push_back(static_cast<int>(at));
    if (node.terminal) return Landing{node.id, node.iclass};
    if (mis(row, node.var) == 'y' && !impute_split_value(node.y, x, mis, row, node.var, work)) {
      return Landing{node.id, node.iclass};
    }
    const int k = child_of(node, x(row, node.var));
    const int next = child_[static_cast<std::size_t>(node.first_child + k - 1)];
    if (next < 0) return std::nullopt;
    at = static_cast<std::size_t>(next);
  }
}

}  // namespace vardel
