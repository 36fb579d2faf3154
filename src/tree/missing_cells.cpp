#include "tree/missing_cells.hpp"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "numerics/parallel_for.hpp"

namespace vardel {

namespace {

// Appends to rows the positions (from 1) of the 'y' flags of a column. Flags
// are nearly all 'n': they are looked at eight at a time.
void append_missing(std::span<const char> flags, std::vector<int>& rows) {
  constexpr std::uint64_t kAllPresent = 0x6e6e6e6e6e6e6e6eULL;  // eight 'n'
  constexpr std::uint64_t kLow7 = 0x7f7f7f7f7f7f7f7fULL;
  static_assert(kAllPresent / 0x0101010101010101ULL == 'n');
  const std::size_t n = flags.size();
  std::size_t r = 0;
  for (; r + 8 <= n; r += 8) {
    std::uint64_t word;
    std::memcpy(&word, flags.data() + r, sizeof word);
    // The top bit of each byte that differs from 'n', lowest byte first.
    const std::uint64_t diff = word ^ kAllPresent;
    std::uint64_t marks = (((diff & kLow7) + kLow7) | diff) & ~kLow7;
    while (marks != 0) {
      const std::size_t b = r + static_cast<std::size_t>(std::countr_zero(marks) / 8);
      if (flags[b] == 'y') rows.push_back(static_cast<int>(b) + 1);
      marks &= marks - 1;
    }
  }
  for (; r < n; ++r)
    if (flags[r] == 'y') rows.push_back(static_cast<int>(r) + 1);
}

}  // namespace

MissingRows missing_rows(FMatrixView<const char> mis) {
  MissingRows rows(static_cast<std::size_t>(mis.extent2()));
  parallel_for(1, mis.extent2(), static_cast<std::size_t>(mis.extent1()) / 8,
               [&](std::ptrdiff_t j) {
                 append_missing(mis.column(j), rows[static_cast<std::size_t>(j - 1)]);
               });
  return rows;
}

std::vector<MissingRows> subnode_missing_rows(const MissingRows& rows, std::span<const int> sub,
                                              std::span<const int> dest,
                                              std::span<const int> start) {
  const std::size_t subnodes = start.size();
  std::vector<MissingRows> out(subnodes, MissingRows(rows.size()));
  parallel_for(1, static_cast<std::ptrdiff_t>(rows.size()), sub.size() / 16, [&](std::ptrdiff_t c) {
    const auto j = static_cast<std::size_t>(c - 1);
    std::vector<std::size_t> count(subnodes, 0);
    for (int r : rows[j])
      ++count[static_cast<std::size_t>(sub[static_cast<std::size_t>(r - 1)] - 1)];
    for (std::size_t k = 0; k < subnodes; ++k) {
      out[k][j].resize(count[k]);
      count[k] = 0;
    }
    for (int r : rows[j]) {
      const auto k = static_cast<std::size_t>(sub[static_cast<std::size_t>(r - 1)] - 1);
      out[k][j][count[k]++] = dest[static_cast<std::size_t>(r - 1)] - start[k] + 1;
    }
  });
  return out;
}

void write_flags(FMatrixView<char> mis, const std::vector<MissingRows>& sub_rows,
                 std::span<const int> start) {
  parallel_for(1, mis.extent2(), static_cast<std::size_t>(mis.extent1()) / 16,
               [&](std::ptrdiff_t j) {
                 const std::span<char> column = mis.column(j);
                 std::fill(column.begin(), column.end(), 'n');
                 for (std::size_t k = 0; k < sub_rows.size(); ++k)
                   for (int r : sub_rows[k][static_cast<std::size_t>(j - 1)])
                     column[static_cast<std::size_t>(start[k] + r - 1)] = 'y';
               });
}

void zero_cells(FMatrixView<double> x, const MissingRows& rows) {
  parallel_for(1, x.extent2(), static_cast<std::size_t>(x.extent1()) / 16, [&](std::ptrdiff_t j) {
    const std::span<double> column = x.column(j);
    for (int r : rows[static_cast<std::size_t>(j - 1)])
      column[static_cast<std::size_t>(r - 1)] = 0.0;
  });
}

}  // namespace vardel
