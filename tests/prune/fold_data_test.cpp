// Splitting the sample by fold, and the priors of a fold's learning part.
#include "prune/fold_data.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace vardel {
namespace {

TEST(FoldData, SplitsByFoldKeepingCaseOrder) {
  // Case i has x = (i, 10 i); cases 3 and 5 have a missing value.
  const std::vector<int> mcv = {2, 1, 2, 3, 1, 2};
  const std::vector<int> y = {1, 2, 2, 1, 3, 3};
  FArray<double> x(6, 2, 0.0);
  FArray<char> mis(6, 2, 'n');
  for (int i = 1; i <= 6; ++i) x(i, 1) = i, x(i, 2) = 10.0 * i;
  mis(3, 2) = 'y';
  mis(5, 1) = 'y';

  const FoldData d = select_prune_cv_data(2, mcv, x, y, mis);
  const int learn[] = {2, 4, 5};
  const int test[] = {1, 3, 6};
  ASSERT_EQ(d.nlearn(), 3);
  ASSERT_EQ(d.ntest(), 3);
  for (int r = 1; r <= 3; ++r) {
    const int i = learn[r - 1], t = test[r - 1];
    EXPECT_EQ(d.x(r, 2), 10.0 * i);
    EXPECT_EQ(d.y(r), y[static_cast<std::size_t>(i - 1)]);
    EXPECT_EQ(d.mis(r, 1), mis(i, 1));
    EXPECT_EQ(d.termnode(r), 1);
    EXPECT_EQ(d.xcv(r, 2), 10.0 * t);
    EXPECT_EQ(d.ycv(r), y[static_cast<std::size_t>(t - 1)]);
    EXPECT_EQ(d.miscv(r, 2), mis(t, 2));
  }
  EXPECT_EQ(select_prune_cv_data(4, mcv, x, y, mis).nlearn(), 6);  // an empty fold
}

TEST(FoldData, PriorsEstimatedFromTheFoldOrTakenFromTheRun) {
  const std::vector<int> y = {1, 3, 3, 1, 3, 1, 1, 3};  // class 2 absent from this fold
  FArray<double> run_prob(3, 0.0);
  run_prob(1) = 0.2, run_prob(2) = 0.3, run_prob(3) = 0.5;
  const auto est = fold_priors(2, y, 3, run_prob);
  EXPECT_TRUE(est(1) == 0.5 && est(2) == 0.0 && est(3) == 0.5);
  for (int priortype : {1, 3}) EXPECT_EQ(fold_priors(priortype, y, 3, run_prob), run_prob);
}

}  // namespace
}  // namespace vardel
