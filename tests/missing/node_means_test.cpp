#include "missing/node_means.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "run/init.hpp"

namespace vardel {
namespace {

// Two predictors: a numerical one and a categorical one with 3 categories.
class NodeMeans : public ::testing::Test {
 protected:
  void SetUp() override {
    Init& in = init();
    in.reset();
    in.nvar = 2;
    in.ncat = 1;
    in.catpos.assign(1, 2);
    in.numcat.assign(1, 3);
    // Cases: (value, code, class), with missing cells flagged.
    const double values[] = {1.0, 2.0, 4.0, 8.0, 16.0, 32.0};
    const double codes[] = {2, 3, 3, 2, 1, 0};
    const int classes[] = {1, 1, 2, 2, 1, 2};
    const char missing_num[] = {'n', 'n', 'n', 'y', 'n', 'n'};
    const char missing_cat[] = {'n', 'n', 'n', 'n', 'n', 'y'};
    x.assign(6, 2, 0.0);
    mis.assign(6, 2, 'n');
    for (int i = 1; i <= 6; ++i) {
      x(i, 1) = values[i - 1];
      x(i, 2) = codes[i - 1];
      mis(i, 1) = missing_num[i - 1];
      mis(i, 2) = missing_cat[i - 1];
      cls.push_back(classes[i - 1]);
    }
  }
  void TearDown() override { init().reset(); }
  FArray<double> x;
  FArray<char> mis;
  std::vector<int> cls;
};

TEST_F(NodeMeans, MeansOfPresentValuesAndModesWithTheSmallestCodeOnTies) {
  FArray<double> grand, meanmode;
  std::vector<int> noc{3, 3, 0};  // a third class without cases keeps zeros
  getmeanmode(x, cls, mis, noc, 6, grand, meanmode);
  EXPECT_DOUBLE_EQ(grand(1), (1.0 + 2.0 + 4.0 + 16.0 + 32.0) / 5.0);
  EXPECT_EQ(grand(2), 2.0);  // codes 2 and 3 both twice: the smaller wins
  EXPECT_DOUBLE_EQ(meanmode(1, 1), (1.0 + 2.0 + 16.0) / 3.0);
  EXPECT_DOUBLE_EQ(meanmode(2, 1), (4.0 + 32.0) / 2.0);
  EXPECT_EQ(meanmode(1, 2), 1.0);  // codes 2, 3, 1 once each
  EXPECT_EQ(meanmode(2, 2), 2.0);  // codes 3 and 2 once each
  EXPECT_EQ(meanmode(3, 1), 0.0);
  EXPECT_EQ(meanmode(3, 2), 0.0);

  // One predictor alone: the same centres there, zeros elsewhere.
  for (int only = 1; only <= 2; ++only) {
    FArray<double> g1, m1;
    getmeanmode(x, cls, mis, noc, 6, g1, m1, only);
    for (int j = 1; j <= 2; ++j) {
      EXPECT_EQ(g1(j), j == only ? grand(j) : 0.0) << only << " " << j;
      for (int k = 1; k <= 3; ++k) EXPECT_EQ(m1(k, j), j == only ? meanmode(k, j) : 0.0);
    }
  }
}

TEST_F(NodeMeans, NoPresentValueGivesZero) {
  for (int i = 1; i <= 6; ++i) mis(i, 1) = 'y';
  FArray<double> grand;
  getgrand(x, mis, 6, grand);
  EXPECT_EQ(grand(1), 0.0);
}

TEST_F(NodeMeans, SubstitutionFillsMissingCellsWithTheirClassCentre) {
  FArray<double> grand, meanmode;
  std::vector<int> noc{3, 3, 0};
  meanmode_sub(x, cls, mis, noc, 6, grand, meanmode);
  EXPECT_DOUBLE_EQ(x(4, 1), (4.0 + 32.0) / 2.0);  // class 2 mean of the present values
  EXPECT_EQ(x(6, 2), 2.0);                        // class 2 mode
  EXPECT_EQ(x(1, 1), 1.0);                        // present cells stay
  // The centres are those of the present values, before the filling.
  EXPECT_DOUBLE_EQ(meanmode(2, 1), 18.0);
}

}  // namespace
}  // namespace vardel
