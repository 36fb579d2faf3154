#include "split/distinct_values.hpp"

#include <algorithm>
#include <bit>

namespace vardel {

namespace {

// Guards the first size of the hash table; it doubles as values come.
constexpr std::size_t kFirstCapacity = 1024;

// Fibonacci hashing: the top bits of the product spread nearby values.
std::size_t home_of(std::uint64_t key, int shift) {
  return static_cast<std::size_t>((key * 0x9e3779b97f4a7c15ULL) >> shift);
}

}  // namespace

void DistinctValues::resize_table(std::size_t capacity) {
  shift_ = 64 - std::countr_zero(capacity);
  keys_.resize(capacity);
  slots_.assign(capacity, -1);
  const std::size_t mask = capacity - 1;
  for (std::size_t v = 0; v < values_.size(); ++v) {
    const auto key = std::bit_cast<std::uint64_t>(values_[v]);
    std::size_t h = home_of(key, shift_);
    while (slots_[h] >= 0) h = (h + 1) & mask;
    keys_[h] = key;
    slots_[h] = static_cast<int>(v);
  }
}

bool DistinctValues::build(std::span<const double> x, std::size_t limit) {
  values_.clear();
  index_.resize(x.size());
  // Open addressing with linear probing, at most half full.
  resize_table(kFirstCapacity);
  std::size_t mask = slots_.size() - 1;
  for (std::size_t i = 0; i < x.size(); ++i) {
    const auto key = std::bit_cast<std::uint64_t>(x[i]);
    std::size_t h = home_of(key, shift_);
    while (slots_[h] >= 0 && keys_[h] != key) h = (h + 1) & mask;
    if (slots_[h] < 0) {
      if (values_.size() == limit) {
        values_.clear();
        return false;
      }
      values_.push_back(x[i]);
      if (2 * values_.size() > slots_.size()) {
        resize_table(2 * slots_.size());
        mask = slots_.size() - 1;
        h = home_of(key, shift_);
        while (keys_[h] != key || slots_[h] < 0) h = (h + 1) & mask;
      } else {
        keys_[h] = key;
        slots_[h] = static_cast<int>(values_.size()) - 1;
      }
    }
    index_[i] = slots_[h];
  }
  return true;
}

}  // namespace vardel
