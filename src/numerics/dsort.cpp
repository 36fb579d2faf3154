// dsort and ssort: quicksort after Singleton (Comm. ACM Algorithm 347).
//
// The dividing element of a segment i..j sits at the fixed fraction
// 0.4140625 of its length; it is first ordered against the ends x(i) and
// x(j), which then act as sentinels for the two scans. The larger part is
// stacked and the smaller one is split further, so the stack stays shallow.
// A descending sort negates x, sorts ascending and negates back (exact).
#include "numerics/dsort.hpp"

#include <cstddef>
#include <iostream>
#include <string_view>
#include <utility>

#include "numerics/farray.hpp"

namespace vardel {
namespace {

// Pending segments: the smaller part is always split further, so the stack
// never holds more than log2(n) + 1 entries.
constexpr int kStackSize = 64;

template <class T>
void singleton_sort(std::span<T> xs, std::span<T> ys, std::optional<int> order,
                    std::string_view name) {
  const auto n = static_cast<std::ptrdiff_t>(xs.size());
  if (n < 1) {
    std::cout << "error in " << name << ": number of values to be sorted not positive\n";
    return;
  }
  const bool carry = !ys.empty();
  if (carry && ys.size() != xs.size()) {
    std::cout << "error in " << name << ": lengths of arrays do not match\n";
    return;
  }
  const bool descending = order.has_value() && *order == 0;

  FView<T> x(xs);
  FView<T> y(ys);
  // Exchange of x(p) and x(q), and of y(p) and y(q) when y is carried along.
  auto swap_at = [&](std::ptrdiff_t p, std::ptrdiff_t q) {
    std::swap(x(p), x(q));
    if (carry) std::swap(y(p), y(q));
  };

  if (descending)
    for (std::ptrdiff_t p = 1; p <= n; ++p) x(p) = -x(p);

  // Fraction of the segment length at which the dividing element is taken,
  // in the precision of the keys.
  const T ratio = static_cast<T>(0.4140625);
  std::ptrdiff_t il[kStackSize];
  std::ptrdiff_t iu[kStackSize];
  int m = 0;
  std::ptrdiff_t i = 1;
  std::ptrdiff_t j = n;
  for (;;) {
    while (j > i) {  // was L30: split segment i..j
      std::ptrdiff_t k = i;
      const std::ptrdiff_t ij = i + static_cast<std::ptrdiff_t>(static_cast<T>(j - i) * ratio);
      // Order x(i) <= x(ij) <= x(j); t holds the dividing value.
      if (x(i) > x(ij)) swap_at(ij, i);
      std::ptrdiff_t l = j;
      if (x(j) < x(ij)) {
        swap_at(ij, j);
        if (x(i) > x(ij)) swap_at(ij, i);
      }
      const T t = x(ij);
      for (;;) {
        do --l;  // was L40: an element of the upper part not above t
        while (x(l) > t);
        do ++k;  // was L50: an element of the lower part not below t
        while (x(k) < t);
        if (k > l) break;
        swap_at(l, k);
      }
      // Stack the larger part and go on with the smaller.
      if (l - i > j - k) {
        il[m] = i;
        iu[m] = l;
        i = k;
      } else {
        il[m] = k;
        iu[m] = j;
        j = l;
      }
      ++m;
    }
    // was L60: take up the next pending segment
    if (m == 0) break;
    --m;
    i = il[m];
    j = iu[m];
  }

  if (descending)
    for (std::ptrdiff_t p = 1; p <= n; ++p) x(p) = -x(p);
}

}  // namespace

void dsort(std::span<double> x, std::span<double> y, std::optional<int> order) {
  singleton_sort(x, y, order, "dsort");
}

void ssort(std::span<float> x, std::span<float> y, std::optional<int> order) {
  singleton_sort(x, y, order, "ssort");
}

}  // namespace vardel
