#include "split/distinct_values.hpp"

#include <algorithm>
#include <bit>

namespace vardel {

bool DistinctValues::build(std::span<const double> x, std::size_t limit) {
  values_.clear();
  index_.resize(x.size());
  // Open addressing with linear probing, at most half full.
  const std::size_t capacity = std::bit_ceil(std::max<std::size_t>(2 * limit + 2, 16));
  const std::size_t mask = capacity - 1;
  const int shift = 64 - std::countr_zero(capacity);
  keys_.resize(capacity);
  slots_.assign(capacity, -1);
  for (std::size_t i = 0; i < x.size(); ++i) {
    const auto key = std::bit_cast<std::uint64_t>(x[i]);
    // Fibonacci hashing: the top bits of the product spread nearby values.
    std::size_t h = static_cast<std::size_t>((key * 0x9e3779b97f4a7c15ULL) >> shift);
    while (slots_[h] >= 0 && keys_[h] != key) h = (h + 1) & mask;
    if (slots_[h] < 0) {
      if (values_.size() == limit) {
        values_.clear();
        return false;
      }
      keys_[h] = key;
      slots_[h] = static_cast<int>(values_.size());
      values_.push_back(x[i]);
    }
    index_[i] = slots_[h];
  }
  return true;
}

}  // namespace vardel
