// ClassTables: one K by K class table for each subtree 0..nsubtrees of a
// pruning sequence, entry (predicted class, true class, subtree) counting
// cases. Subtree 0 is the largest tree.
//
// The same shape serves a fold's own tables and their sum over the folds;
// table(s) is subtree s's table as a K by K column-major block, the layout
// a pour through one tree fills.
#pragma once

#include "numerics/farray.hpp"

namespace vardel {

class ClassTables {
 public:
  ClassTables() = default;
  ClassTables(int nclass, int nsubtrees)
      : k_(nclass), nsub_(nsubtrees), a_(nclass * nclass, nsubtrees + 1, 0) {}

  int nclass() const { return k_; }
  int nsubtrees() const { return nsub_; }

  int& operator()(int predicted, int truth, int s) { return a_(cell(predicted, truth), s + 1); }
  int operator()(int predicted, int truth, int s) const {
    return a_(cell(predicted, truth), s + 1);
  }

  // Subtree s's table, K by K, entry (i, j) at i + (j - 1) K counted from 1.
  FView<int> table(int s) { return a_.column(s + 1); }

  // Entry by entry sum; both sides must have the same shape.
  void add(const ClassTables& q) {
    for (FArray<int>::Index i = 1; i <= a_.size(); ++i) a_(i) += q.a_(i);
  }

  void clear() { a_.fill(0); }

 private:
  int cell(int i, int j) const { return i + (j - 1) * k_; }

  int k_ = 0;
  int nsub_ = 0;
  FArray<int> a_;  // column s + 1 is subtree s's table, flattened
};

}  // namespace vardel
