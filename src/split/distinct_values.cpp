#include "split/distinct_values.hpp"

#include <algorithm>
#include <atomic>
#include <bit>

#include "numerics/parallel_for.hpp"

namespace vardel {

namespace {

// Guards the first size of a hash table; it doubles as values come.
constexpr std::size_t kFirstCapacity = 1024;
// Guards the sharing: columns shorter than this are looked at in one stretch.
constexpr std::size_t kFewestShared = 65536;
// Guards the sharing: rough steps per value of a stretch.
constexpr std::size_t kStepsPerValue = 8;

// Fibonacci hashing: the top bits of the product spread nearby values.
std::size_t home_of(std::uint64_t key, int shift) {
  return static_cast<std::size_t>((key * 0x9e3779b97f4a7c15ULL) >> shift);
}

// The distinct values seen so far, in order of first appearance, with an
// open-addressing hash table (linear probing, at most half full) over them.
class ValueTable {
 public:
  explicit ValueTable(std::size_t limit) : limit_(limit) { resize(kFirstCapacity); }

  // The position of v among the values, adding it when new; -1 when adding
  // it would pass the limit.
  int find_or_add(double v) {
    const auto key = std::bit_cast<std::uint64_t>(v);
    std::size_t h = home_of(key, shift_);
    while (slots_[h].at >= 0 && slots_[h].key != key) h = (h + 1) & mask_;
    if (slots_[h].at >= 0) return slots_[h].at;
    if (values_.size() == limit_) return -1;
    values_.push_back(v);
    const int at = static_cast<int>(values_.size()) - 1;
    if (2 * values_.size() > slots_.size()) {
      resize(2 * slots_.size());
    } else {
      slots_[h] = {key, at};
    }
    return at;
  }

  void set_limit(std::size_t limit) { limit_ = limit; }
  std::vector<double>& values() { return values_; }

 private:
  // Makes the table `capacity` (a power of two) slots and puts the values
  // found so far into it.
  void resize(std::size_t capacity) {
    shift_ = 64 - std::countr_zero(capacity);
    mask_ = capacity - 1;
    slots_.assign(capacity, Slot{});
    for (std::size_t v = 0; v < values_.size(); ++v) {
      const auto key = std::bit_cast<std::uint64_t>(values_[v]);
      std::size_t h = home_of(key, shift_);
      while (slots_[h].at >= 0) h = (h + 1) & mask_;
      slots_[h] = {key, static_cast<int>(v)};
    }
  }

  std::size_t limit_;
  std::vector<double> values_;
  // A slot: the bits of a value and its position in values_ (-1: empty),
  // side by side so that a probe reads one place.
  struct Slot {
    std::uint64_t key = 0;
    int at = -1;
  };
  std::vector<Slot> slots_;
  int shift_ = 0;  // 64 less the bits of a slot number
  std::size_t mask_ = 0;
};

}  // namespace

bool DistinctValues::build(std::span<const double> x, std::size_t limit) {
  values_.clear();
  size_ = x.size();
  if (capacity_ < size_) {
    index_ = std::make_unique_for_overwrite<int[]>(size_);
    capacity_ = size_;
  }
  // Stretches: each finds its own values, then the stretches after the first
  // add theirs to the first's in order, and their cases are renumbered.
  const std::size_t stretches =
      size_ >= kFewestShared ? static_cast<std::size_t>(std::max(1, parallel_threads())) : 1;
  const std::size_t length = (size_ + stretches - 1) / stretches;
  std::vector<ValueTable> tables;
  tables.reserve(stretches);
  for (std::size_t s = 0; s < stretches; ++s)
    tables.emplace_back(std::max<std::size_t>(1, limit * length / std::max<std::size_t>(1, size_)));
  if (stretches == 1) tables[0].set_limit(limit);
  std::atomic<bool> over{false};
  parallel_for(0, static_cast<std::ptrdiff_t>(stretches) - 1, length * kStepsPerValue,
               [&](std::ptrdiff_t s) {
                 const std::size_t lo = static_cast<std::size_t>(s) * length;
                 const std::size_t hi = std::min(size_, lo + length);
                 ValueTable& table = tables[static_cast<std::size_t>(s)];
                 for (std::size_t i = lo; i < hi; ++i) {
                   const int at = table.find_or_add(x[i]);
                   if (at < 0 || over.load(std::memory_order_relaxed)) {
                     over.store(true, std::memory_order_relaxed);
                     return;
                   }
                   index_[i] = at;
                 }
               });
  if (over.load()) return false;

  ValueTable& all = tables[0];
  all.set_limit(limit);
  std::vector<std::vector<int>> renumber(stretches);
  for (std::size_t s = 1; s < stretches; ++s) {
    for (const double v : tables[s].values()) {
      const int at = all.find_or_add(v);
      if (at < 0) return false;
      renumber[s].push_back(at);
    }
  }
  parallel_for(1, static_cast<std::ptrdiff_t>(stretches) - 1, length, [&](std::ptrdiff_t s) {
    const std::vector<int>& to = renumber[static_cast<std::size_t>(s)];
    const std::size_t lo = static_cast<std::size_t>(s) * length;
    const std::size_t hi = std::min(size_, lo + length);
    for (std::size_t i = lo; i < hi; ++i) index_[i] = to[static_cast<std::size_t>(index_[i])];
  });
  values_ = std::move(all.values());
  return true;
}

}  // namespace vardel
