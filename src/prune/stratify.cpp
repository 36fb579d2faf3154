// stratify: folds by blocks of v consecutive cases (see stratify.hpp).
#include "prune/stratify.hpp"

#include <cmath>
#include <cstddef>
#include <vector>

#include "numerics/dsort.hpp"
#include "numerics/farray.hpp"
#include "numerics/ranlux.hpp"

namespace vardel {
namespace {

// Luxury level of the generator for the folds (restarted with no numbers
// skipped).
constexpr int kFoldLuxury = 4;

}  // namespace

void stratify(int folds, int seed, std::span<int> mcv) {
  rluxgo(kFoldLuxury, seed, 0, 0);
  const int v = folds;
  const int n = static_cast<int>(mcv.size());
  FView<int> fold(mcv);

  // cvgroup carries the fold labels through the sorts; it is deliberately
  // not reset between blocks, so each block permutes the previous order.
  std::vector<float> cvgroup_store(static_cast<std::size_t>(v));
  std::vector<float> swk_store(static_cast<std::size_t>(v));
  FView<float> cvgroup(cvgroup_store);
  for (int i = 1; i <= v; ++i) cvgroup(i) = static_cast<float>(i);

  // One permutation: v uniform keys sorted ascending, the labels following.
  auto shuffle = [&] {
    ranlux(swk_store);
    ssort(swk_store, cvgroup_store);
  };
  // nint of a float: nearest integer, halves away from zero.
  auto nint = [](float x) { return static_cast<int>(std::lround(x)); };

  const int nblocks = n / v;
  for (int b = 1; b <= nblocks; ++b) {
    shuffle();
    const int first = (b - 1) * v;
    for (int i = 1; i <= v; ++i) fold(first + i) = nint(cvgroup(i));
  }

  const int rest = n - v * nblocks;
  if (rest > 0) {
    shuffle();
    const int first = v * nblocks;
    for (int i = 1; i <= rest; ++i) fold(first + i) = nint(cvgroup(i));
  }
}

}  // namespace vardel
