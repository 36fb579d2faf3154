#include "tree/missing_cells.hpp"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace vardel {
namespace {

TEST(MissingCells, RowsMatchAPlainScanForEveryLengthAndOffset) {
  std::mt19937 rng(7);
  const char kinds[] = {'n', 'n', 'n', 'n', 'n', 'y', 'x'};  // 'x': neither
  for (int n = 0; n <= 40; ++n) {
    const int pad = n % 3;  // blocks that start inside a word
    FArray<char> flags(n + pad, 3, 'n');
    for (char& f : flags) f = kinds[rng() % 7];
    const FMatrixView<const char> block = FMatrixView<const char>(flags).rows(pad, n);
    const std::vector<std::vector<int>> rows = missing_rows(block);
    ASSERT_EQ(rows.size(), 3u);
    for (int j = 1; j <= 3; ++j) {
      std::vector<int> want;
      for (int i = 1; i <= n; ++i)
        if (block(i, j) == 'y') want.push_back(i);
      EXPECT_EQ(rows[static_cast<std::size_t>(j - 1)], want) << "n " << n << " column " << j;
    }

    FArray<double> x(n + pad, 3, 1.5);
    const FMatrixView<double> xb = FMatrixView<double>(x).rows(pad, n);
    zero_cells(xb, rows);
    for (int j = 1; j <= 3; ++j)
      for (int i = 1; i <= n; ++i) EXPECT_EQ(xb(i, j), block(i, j) == 'y' ? 0.0 : 1.5);
  }
}

TEST(MissingCells, SubnodesGetTheirRowsAndFlagsAsAStableSplitWouldMoveThem) {
  std::mt19937 rng(11);
  for (int n : {0, 1, 9, 64, 257}) {
    const int subnodes = 3;
    FArray<char> flags(n, 4, 'n');
    for (char& f : flags) f = rng() % 5 == 0 ? 'y' : 'n';
    std::vector<int> sub(static_cast<std::size_t>(n));
    std::vector<int> start(subnodes, 0);
    std::vector<int> size(subnodes, 0);
    for (int& k : sub) ++size[static_cast<std::size_t>((k = 1 + static_cast<int>(rng() % 3)) - 1)];
    for (int k = 1; k < subnodes; ++k) start[k] = start[k - 1] + size[k - 1];
    std::vector<int> next = start;
    std::vector<int> dest;
    for (int k : sub) dest.push_back(next[static_cast<std::size_t>(k - 1)]++);
    FArray<char> want(n, 4, '?');
    for (int j = 1; j <= 4; ++j)
      for (int i = 1; i <= n; ++i) want(dest[static_cast<std::size_t>(i - 1)] + 1, j) = flags(i, j);

    const std::vector<MissingRows> rows =
        subnode_missing_rows(missing_rows(flags), sub, dest, start);
    FArray<char> got = flags;
    write_flags(got, rows, start);
    EXPECT_EQ(got.vector(), want.vector()) << "n " << n;
    for (int k = 0; k < subnodes; ++k) {
      const FMatrixView<const char> block = FMatrixView<const char>(want).rows(start[k], size[k]);
      EXPECT_EQ(rows[static_cast<std::size_t>(k)], missing_rows(block)) << "subnode " << k + 1;
    }
  }
}

}  // namespace
}  // namespace vardel
