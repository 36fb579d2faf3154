// Ranking by a partitioning quicksort on an index vector (median of three,
// insertion sort for short segments, explicit stack). Only index entries are
// swapped; the keys are read through the index and never moved.
#include "numerics/indexx.hpp"

#include <utility>

#include "numerics/farray.hpp"
#include "numerics/nrutil.hpp"

namespace vardel {
namespace {

// Segments with r - l below this are finished by straight insertion.
constexpr int kInsertionCutoff = 15;
// Stack entries for pending segments (two per segment). The larger part is
// always the one pushed, so 50 entries cover far more keys than fit in memory.
constexpr int kStackSize = 50;

template <class Key>
void rank(std::span<const Key> keys, std::span<int> positions, const char* tag) {
  const int n = static_cast<int>(assert_eq2(keys.size(), positions.size(), tag));
  FView<const Key> arr(keys);
  FView<int> index(positions);

  // Compare-exchange of positions p and q: order the two entries by key.
  auto icomp_xchg = [&](int p, int q) {
    if (arr(index(q)) < arr(index(p))) std::swap(index(p), index(q));
  };

  int istack[kStackSize];
  for (int i = 1; i <= n; ++i) index(i) = i;
  int jstack = 0;
  int l = 1;
  int r = n;
  for (;;) {
    if (r - l < kInsertionCutoff) {
      for (int j = l + 1; j <= r; ++j) {
        const int indext = index(j);
        const Key a = arr(indext);
        int i = j - 1;
        for (; i >= l; --i) {
          if (arr(index(i)) <= a) break;
          index(i + 1) = index(i);
        }
        index(i + 1) = indext;
      }
      if (jstack == 0) return;
      r = istack[jstack - 1];
      l = istack[jstack - 2];
      jstack -= 2;
    } else {
      const int k = (l + r) / 2;
      std::swap(index(k), index(l + 1));
      icomp_xchg(l, r);
      icomp_xchg(l + 1, r);
      icomp_xchg(l, l + 1);
      int i = l + 1;
      int j = r;
      const int indext = index(l + 1);
      const Key a = arr(indext);
      for (;;) {
        do ++i;
        while (arr(index(i)) < a);
        do --j;
        while (arr(index(j)) > a);
        if (j < i) break;
        std::swap(index(i), index(j));
      }
      index(l + 1) = index(j);
      index(j) = indext;
      jstack += 2;
      if (jstack > kStackSize) nrerror("indexx: NSTACK too small");
      // Push the larger part, go on with the smaller.
      if (r - i + 1 >= j - l) {
        istack[jstack - 1] = r;
        istack[jstack - 2] = i;
        r = j - 1;
      } else {
        istack[jstack - 1] = j - 1;
        istack[jstack - 2] = l;
        l = i;
      }
    }
  }
}

}  // namespace

void indexx(std::span<const double> arr, std::span<int> index) {
  rank(arr, index, "indexx");
}

void indexx_i4b(std::span<const int> arr, std::span<int> index) {
  rank(arr, index, "indexx_i4b");
}

}  // namespace vardel
