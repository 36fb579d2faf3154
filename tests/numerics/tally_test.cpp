#include "numerics/tally.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace vardel {
namespace {

// Runs of one code, lengths that are not a multiple of the partial counts,
// and counts that already hold something.
TEST(Tally, AddsEveryCodeToItsCount) {
  for (std::size_t length : {0u, 1u, 3u, 4u, 7u, 1001u}) {
    std::vector<int> codes;
    for (std::size_t i = 0; i < length; ++i)
      codes.push_back(i % 11 < 6 ? 2 : static_cast<int>(i % 3) + 1);
    std::vector<int> want = {5, 0, 7};
    for (int c : codes) ++want[static_cast<std::size_t>(c - 1)];
    std::vector<int> got = {5, 0, 7};
    tally(codes, got);
    EXPECT_EQ(got, want) << length;
  }
}

}  // namespace
}  // namespace vardel
