// DistinctValues: the distinct values of a column and, for each case, where
// its value stands among them.
//
// Data are often recorded to a few digits, so a column of many cases holds
// far fewer distinct values. A function of the value alone (a power, a
// logarithm) then needs working out once per distinct value and handing to
// every case that has it, with the same result bit for bit. Values are told
// apart by their bits: +0.0 and -0.0 are two values.
//
// build() gives up, keeping nothing, once the distinct values pass `limit`:
// for a column of mostly different values the plain way is cheaper.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vardel {

class DistinctValues {
 public:
  // True when x holds at most `limit` distinct values; then values() are
  // they, in order of first appearance, and index()[i] the position of x[i]
  // among them.
  bool build(std::span<const double> x, std::size_t limit);

  std::span<const double> values() const { return values_; }
  std::span<const int> index() const { return index_; }

 private:
  // Makes the hash table `capacity` (a power of two) slots and puts the
  // values found so far into it.
  void resize_table(std::size_t capacity);

  std::vector<double> values_;
  std::vector<int> index_;
  std::vector<std::uint64_t> keys_;  // hash table: the bits of a value
  std::vector<int> slots_;           // its position in values_, -1 if empty
  int shift_ = 0;                    // 64 less the bits of a slot number
};

}  // namespace vardel
