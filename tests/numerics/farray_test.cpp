#include "numerics/farray.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace vardel {
namespace {

TEST(FArray, MatricesAreOneBasedAndColumnMajor) {
  FArray<int> a(3, 2, 0);
  int k = 0;
  for (int j = 1; j <= 2; ++j)
    for (int i = 1; i <= 3; ++i) a(i, j) = ++k;
  // The flat order runs down each column first.
  for (int f = 1; f <= 6; ++f) EXPECT_EQ(a(f), f);
  EXPECT_EQ(a(2, 2), 5);
  auto col2 = a.column(2);
  ASSERT_EQ(col2.size(), 3u);
  EXPECT_EQ(col2[0], 4);
  a.assign(2, 2, 7);
  FArray<int> v(3, 2);  // two arguments: a vector of three 2s
  EXPECT_EQ(v.size(), 3);
  EXPECT_EQ(v(3), 2);
  EXPECT_EQ(a.extent1(), 2);
  EXPECT_EQ(a(2, 2), 7);
}

TEST(FArray, KeepRowsMovesTheColumnsTogether) {
  FArray<int> a(4, 3, 0);
  for (int f = 1; f <= a.size(); ++f) a(f) = f;  // column j holds 4j-3 .. 4j
  a.keep_rows(2);
  ASSERT_EQ(a.extent1(), 2);
  ASSERT_EQ(a.extent2(), 3);
  EXPECT_EQ(a.vector(), (std::vector<int>{1, 2, 5, 6, 9, 10}));
  a.keep_rows(0);
  EXPECT_EQ(a.size(), 0);
  EXPECT_EQ(a.extent2(), 3);
}

TEST(FView, WindowStartsAtOne) {
  FArray<double> y(10, 0.0);
  FView<double> block(y.data() + 4, 3);  // positions 5..7 of y
  block(1) = 1.5;
  block(3) = 2.5;
  EXPECT_EQ(y(5), 1.5);
  EXPECT_EQ(y(7), 2.5);
}

TEST(FMatrixView, BlockOfRowsKeepsTheTableColumnStride) {
  FArray<int> a(5, 3, 0);
  for (int f = 1; f <= 15; ++f) a(f) = f;
  const FMatrixView<int> block = FMatrixView<int>(a).rows(1, 3);  // rows 2..4
  EXPECT_EQ(block.extent1(), 3);
  EXPECT_EQ(block.extent2(), 3);
  EXPECT_EQ(block(1, 1), 2);
  EXPECT_EQ(block(3, 3), 14);
  EXPECT_EQ(block.column(2).front(), 7);
  EXPECT_EQ(block.column(2).size(), 3u);
  block(2, 3) = -1;
  EXPECT_EQ(a(3, 3), -1);
  const FMatrixView<const int> shown = block;  // read-only view of the same block
  EXPECT_EQ(shown(2, 3), -1);
  EXPECT_EQ(shown.rows(2, 1)(1, 1), 4);
}

}  // namespace
}  // namespace vardel
