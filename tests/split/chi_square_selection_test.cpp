#include "split/chi_square_test.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "run/stop.hpp"
#include "split/node_data.hpp"

namespace vardel {
namespace {

using split_test::columns;
using split_test::missing_where;

using Ints = std::vector<int>;

TEST(ChiSquare, EmptyCellsAndColumnsByHand) {
  // Column 1 numerical, never tested. Column 2: X = 4 (1/2)^2 / 1.5 on 1 df.
  // Column 3, code 3 unused: observed 2 0 | 1 1 | 0 0 | 0 2 against expected
  // 1 1 | 1 1 | 0 0 | 1 1, X = 4 on (2 - 1)(3 - 1) df, p = exp(-2). Class 3 empty.
  const FArray<double> x = columns({{5, 6, 7, 8, 9, 1}, {1, 2, 1, 2, 1, 2}, {1, 1, 2, 2, 4, 4}});
  const Ints y{1, 1, 1, 2, 2, 2};
  Pick pick = chi_sq(x, y, Ints{3, 3, 0}, 2, Ints{2, 3}, Ints{2, 4});
  EXPECT_EQ(pick.var, 3);
  EXPECT_EQ(pick.stat, 4.0);
  EXPECT_NEAR(pick.p, std::exp(-2.0), 1e-15);
  EXPECT_EQ(chi_sq(x, y, Ints{3, 3, 0}, 2, Ints{2}, Ints{2}).stat, 4.0 * 0.25 / 1.5);

  // Two more cases of class 2, missing in the last column: counted, their code 0
  // would stop the run; with the node's class counts, the expected counts would shift.
  const FArray<double> xm = columns({{1, 2, 1, 2, 1, 2, 1, 2}, {1, 1, 2, 2, 4, 4, 0, 0}});
  const Ints ym{1, 1, 1, 2, 2, 2, 2, 2};
  pick = chi_sq1(xm, missing_where(xm, 0.0), ym, 3, Ints{2}, Ints{4});
  EXPECT_EQ(pick.var, 2);
  EXPECT_EQ(pick.stat, 4.0);
  EXPECT_NEAR(pick.p, std::exp(-2.0), 1e-15);
  EXPECT_THROW(chi_sq(xm, ym, Ints{3, 5, 0}, 2, Ints{2}, Ints{4}), RunStopped);

  // Bad codes in two columns: only the first column in order is reported,
  // however the columns were shared out.
  const FArray<double> xb = columns({{1, 2, 9, 2, 1, 2, 1, 2}, {1, 1, 2, 2, 4, 4, 7, 0}});
  testing::internal::CaptureStdout();
  EXPECT_THROW(chi_sq(xb, ym, Ints{3, 5, 0}, 2, Ints{1, 2}, Ints{2, 4}), RunStopped);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Category code 9 of variable 1 is outside its range; cannot split.\n");
}

TEST(ChiSquare, ExpectedCountsAreWorkedInSinglePrecision) {
  // Class 1: code 1; class 2: codes 1 and 2. The expected counts are thirds,
  // which float and double round differently.
  const Ints noc{1, 2};
  const int obs[2][2] = {{1, 0}, {1, 1}};  // [class][code]
  const int tot[2] = {2, 1};
  double single = 0.0;
  double wide = 0.0;
  for (int c = 0; c < 2; ++c) {
    for (int k = 0; k < 2; ++k) {
      const double es = static_cast<float>(noc[k] * tot[c]) / 3.0f;
      const double ed = noc[k] * tot[c] / 3.0;
      single += (obs[k][c] - es) * (obs[k][c] - es) / (kTiny + es);
      wide += (obs[k][c] - ed) * (obs[k][c] - ed) / (kTiny + ed);
    }
  }
  ASSERT_NE(single, wide);
  EXPECT_EQ(chi_sq(columns({{1, 1, 2}}), Ints{1, 2, 2}, noc, 2, Ints{1}, Ints{2}).stat, single);
}

// 200 cases, 100 of each class, three two-code columns with code = class,
// X = 200, except that case 1 has code 2 in column `flipped` (X below 200).
// Every p-value underflows to 0.
FArray<double> strong_columns(int flipped, Ints& y) {
  FArray<double> x(200, 3, 0.0);
  y.assign(200, 0);
  for (int i = 1; i <= 200; ++i) {
    y[i - 1] = i <= 100 ? 1 : 2;
    x(i, 1) = x(i, 2) = x(i, 3) = y[i - 1];
  }
  x(1, flipped) = 2;
  return x;
}

TEST(ChiSquare, UnderflowedPValuesAreRankedByX) {
  Ints y;
  for (const auto& [flipped, best] : {std::pair{1, 2}, std::pair{3, 1}}) {
    // Larger X wins though later; of equal X the first is kept.
    const FArray<double> xf = strong_columns(flipped, y);
    const Pick pick = chi_sq(xf, y, Ints{100, 100}, 2, Ints{1, 2, 3}, Ints{2, 2, 2});
    EXPECT_EQ(pick.var, best);
    EXPECT_EQ(pick.p, 0.0);
    EXPECT_EQ(pick.stat, 200.0);
  }

  // chi_sq5 ranks again on X, ascending 1, 2, 3 (the tie in column order), and
  // takes the last two ranks: the later column 3 before column 2.
  const FArray<double> x = strong_columns(1, y);
  const FArray<char> present(200, 3, 'n');
  TwoBest two = chi_sq5(x, present, y, 2, Ints{1, 2, 3}, Ints{2, 2, 2});
  EXPECT_EQ(two.first.var, 3);
  EXPECT_EQ(two.second.var, 2);

  // A single categorical column is its own alternate, with a p that never wins.
  two = chi_sq5(x, present, y, 2, Ints{2}, Ints{2});
  EXPECT_EQ(two.second.var, 2);
  EXPECT_EQ(two.second.p, kUntestedP);
}

}  // namespace
}  // namespace vardel
