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
// for a column of mostly different values the plain way is cheaper. A long
// column is shared among threads in stretches, and each stretch gives up
// once it alone passes its share of the limit.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace vardel {

class DistinctValues {
 public:
  // True when x holds at most `limit` distinct values (and no stretch more
  // than its share); then values() are they, in order of first appearance,
  // and index()[i] the position of x[i] among them.
  bool build(std::span<const double> x, std::size_t limit);

  std::span<const double> values() const { return values_; }
  std::span<const int> index() const { return {index_.get(), size_}; }

 private:
  std::vector<double> values_;
  std::unique_ptr<int[]> index_;  // every position written by build()
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace vardel
