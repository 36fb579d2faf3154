#include "prune/node_walk.hpp"

#include <climits>
#include <cmath>

namespace vardel {
int read_record_int(const FView<double>& y, int pos) {
  return static_cast<int>(std::lround(static_cast<float>(y(pos))));
}

int child_node(int t, int k, int nclass) {
  const long long id = static_cast<long long>(t - 1) * nclass + k + 1;
  return id > INT_MAX ? 0 : static_cast<int>(id);
}

}  // namespace vardel
