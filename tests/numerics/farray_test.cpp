#include "numerics/farray.hpp"

#include <gtest/gtest.h>

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

TEST(FView, WindowStartsAtOne) {
  FArray<double> y(10, 0.0);
  FView<double> block(y.data() + 4, 3);  // positions 5..7 of y
  block(1) = 1.5;
  block(3) = 2.5;
  EXPECT_EQ(y(5), 1.5);
  EXPECT_EQ(y(7), 2.5);
}

}  // namespace
}  // namespace vardel
