// Steps of the walk that pours a case down the tree in the store.
//
// read_record_int reads an integer field of a node record: the stored double
// goes through single precision and is rounded to nearest, half away from
// zero, so values beyond 2^24 lose digits (no field comes near that).
//
// child_node gives the number of child k (1..K) of node t; nodes are numbered
// so that child k of t is (t - 1) K + k + 1. A number beyond the range of
// node ids comes back as 0, which is never in the store.
//
// PourWork holds the work arrays shared by the steps of one pour.
#pragma once

#include "numerics/farray.hpp"

namespace vardel {

int read_record_int(const FView<double>& y, int pos);

int child_node(int t, int k, int nclass);

// Work arrays of a pour, sized once for K classes and reused for every case
// and node, so that the walk allocates nothing per case.
struct PourWork {
  explicit PourWork(int nclass) : indx(nclass, 0), d(nclass, 0.0) {}
  FArray<int> indx;  // ranking of class counts or scores
  FArray<double> d;  // class scores
};

}  // namespace vardel
