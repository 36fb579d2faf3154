// Heap sort (sort) and the index-driven two-array sort (sort2).
#include "numerics/sort.hpp"

#include <utility>
#include <vector>

#include "numerics/farray.hpp"
#include "numerics/indexx.hpp"
#include "numerics/nrutil.hpp"

namespace vardel {
namespace {

// Let arr(l) sink through the heap held in arr(l..r) until both of its
// children are no larger.
void sift_down(FView<double> arr, std::ptrdiff_t l, std::ptrdiff_t r) {
  const double a = arr(l);
  std::ptrdiff_t jold = l;
  std::ptrdiff_t j = l + l;
  while (j <= r) {
    if (j < r && arr(j) < arr(j + 1)) ++j;
    if (a >= arr(j)) break;
    arr(jold) = arr(j);
    jold = j;
    j = j + j;
  }
  arr(jold) = a;
}

}  // namespace

void sort(std::span<double> values) {
  FView<double> arr(values);
  const std::ptrdiff_t n = arr.size();
  for (std::ptrdiff_t i = n / 2; i >= 1; --i) sift_down(arr, i, n);
  for (std::ptrdiff_t i = n; i >= 2; --i) {
    std::swap(arr(1), arr(i));
    sift_down(arr, 1, i - 1);
  }
}

void sort2(std::span<double> arr, std::span<double> slave) {
  const std::size_t n = assert_eq2(arr.size(), slave.size(), "sort2");
  std::vector<int> index(n);
  indexx(arr, index);
  std::vector<double> work(n);
  for (std::size_t k = 0; k < n; ++k) work[k] = arr[index[k] - 1];
  for (std::size_t k = 0; k < n; ++k) arr[k] = work[k];
  for (std::size_t k = 0; k < n; ++k) work[k] = slave[index[k] - 1];
  for (std::size_t k = 0; k < n; ++k) slave[k] = work[k];
}

}  // namespace vardel
