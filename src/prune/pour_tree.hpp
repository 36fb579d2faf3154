// PourTree: the univariate tree in the store decoded once for many walks.
//
// A pour sends thousands of cases down the same tree. Decoding each node
// record once (class, split variable, split test, category lists, where each
// child sits) spares every case the store look-ups and the integer reads of
// the record fields. The decoded tree points into the store's records, so it
// is valid only while the store is not changed.
//
// land walks case `row` of x from the root exactly as the record says: the
// first k with x <= cutpt(k), else K (under the 1D method an "L" split
// compares |x - gmean|); a categorical split sends nint(x) to the subnode
// whose list holds it, else K; a missing split value is imputed (or ends the
// case) by impute_split_value. nullopt when a node on the way is not in the
// store.
#pragma once

#include <optional>
#include <vector>

#include "numerics/farray.hpp"
#include "prune/node_walk.hpp"
#include "tree/tree_store.hpp"

namespace vardel {

// The terminal node a case reaches and its predicted class (0 in a child
// without cases). Under "Go down if possible" a case with a missing split
// value lands on the inner node where it stopped.
struct Landing {
  int node;
  int iclass;
};

class PourTree {
 public:
  explicit PourTree(TreeStore& store);

  std::optional<Landing> land(FArray<double>& x, const FArray<char>& mis, int row,
                              PourWork& work) const;
  // As land, and appends the places (see node_id) of the nodes the case
  // passes, from the root to where it lands or its walk ends.
  std::optional<Landing> land(FArray<double>& x, const FArray<char>& mis, int row, PourWork& work,
                              std::vector<int>& path) const;

  // The decoded nodes by place 0..size()-1: their numbers and classes.
  int size() const { return static_cast<int>(nodes_.size()); }
  int node_id(int place) const { return nodes_[static_cast<std::size_t>(place)].id; }
  int node_class(int place) const { return nodes_[static_cast<std::size_t>(place)].iclass; }

 private:
  struct Node {
    int id = 0;
    int iclass = 0;
    bool terminal = true;
    int var = 0;
    bool categorical = false;
    bool absolute = false;  // an "L" split of the 1D method: |x - gmean| is compared
    double gmean = 0.0;
    FView<double> y;       // the record in the store
    int first_child = 0;   // children's places in nodes_, K of them, in child_ (-1: absent)
    int first_listed = 0;  // categorical: (code, subnode) pairs in listed_, in list order
    int nlisted = 0;
  };

  int child_of(const Node& node, double x) const;
  std::optional<Landing> walk(FArray<double>& x, const FArray<char>& mis, int row, PourWork& work,
                              std::vector<int>* path) const;

  int nclass_ = 0;
  int cut_pos_ = 0;
  std::vector<Node> nodes_;  // nodes_[0] is the root; empty when the root is absent
  std::vector<int> child_;
  std::vector<std::pair<long, int>> listed_;
};

}  // namespace vardel
