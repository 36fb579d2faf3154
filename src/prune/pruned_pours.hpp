// PrunedPours: the same cases poured again and again through a tree that is
// only pruned between the pours (cross-validation's sequence of subtrees).
//
// The first pour walks every case through the tree in the store and keeps
// the nodes it passed. Pruning removes whole sets of children and changes no
// record, so a case walks a pruned tree along the same nodes until one of
// them has lost its children: later pours land each case on the first node
// of its kept path that is terminal in the store now, or, where the first
// walk met a node that is not in the store, end the pour as pour_test does.
// Landings and tables are those pour_test would give; only the first pour
// writes imputed values into x (later pours would write the same ones at the
// nodes they pass). When the first pour ends early at a missing node, or a
// kept path meets a node that is gone, the pour is made afresh by pour_test.
#pragma once

#include <span>
#include <vector>

#include "numerics/farray.hpp"

namespace vardel {

class PrunedPours {
 public:
  // As pour_test: table(predicted, true) over the n cases of x, y, mis; the
  // same x, y, mis and n at every call.
  void pour(FArray<int>& table, FArray<double>& x, std::span<const int> y, const FArray<char>& mis,
            int n);

 private:
  bool first_pour(FArray<int>& py, FArray<double>& x, const FArray<char>& mis, int n);
  void group_landings(std::span<const int> y, int n, int k);

  bool walked_ = false;
  std::vector<int> ids_;      // node number of each place of the first tree
  std::vector<int> classes_;  // its class
  std::vector<int> start_;    // case r's path: places path_[start_[r - 1] .. start_[r])
  std::vector<int> path_;
  std::vector<int> landing_row_;    // a case of each node the first pour landed cases on
  std::vector<int> landing_count_;  // the cases of each class (k per landing node)
};

}  // namespace vardel
