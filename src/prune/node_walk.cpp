#include "prune/node_walk.hpp"

#include <climits>
#include <cmath>

#include "run/init.hpp"

namespace vardel {
namespace {

// Test entry of a split won on its spread (Levene test) under the 1D method.
constexpr int kLeveneTest = 'L';
// varsel of the 1D method: only there is an "L" split made on |x - gmean|.
constexpr int kVarsel1D = 2;

int categorical_child(const FView<double>& y, double x, int nclass) {
  const Init& in = init();
  const int c = read_record_int(y, in.pos.gmean_pos);
  const int ncodes = in.numcat(c);
  const long code = std::lround(x);
  int listed = 0;  // codes passed so far, in all earlier subnodes
  for (int k = 1; k <= nclass; ++k) {
    const int count = read_record_int(y, in.pos.cut_pos + k - 1);
    for (int m = 1; m <= count && listed < ncodes; ++m) {
      ++listed;
      if (read_record_int(y, in.pos.cutcat_pos + listed - 1) == code) return k;
    }
  }
  return nclass;
}

int numerical_child(const FView<double>& y, double x, int nclass) {
  const Init& in = init();
  if (read_record_int(y, in.pos.test_pos) == kLeveneTest && in.varsel == kVarsel1D) {
    x = std::fabs(x - y(in.pos.gmean_pos));
  }
  // A zero tail of unused points may catch a non-positive x: the scan stops
  // at the first point not below x, as the split was made.
  for (int k = 1; k <= nclass - 1; ++k) {
    if (x <= y(in.pos.cut_pos + k - 1)) return k;
  }
  return nclass;
}

}  // namespace

int read_record_int(const FView<double>& y, int pos) {
  return static_cast<int>(std::lround(static_cast<float>(y(pos))));
}

int child_node(int t, int k, int nclass) {
  const long long id = static_cast<long long>(t - 1) * nclass + k + 1;
  return id > INT_MAX ? 0 : static_cast<int>(id);
}

int univariate_child(const FView<double>& y, double x) {
  const Init& in = init();
  const int var = read_record_int(y, in.pos.var_pos);
  if (in.vtype(var) == 'c') return categorical_child(y, x, in.nclass);
  return numerical_child(y, x, in.nclass);
}

}  // namespace vardel
