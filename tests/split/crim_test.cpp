#include "split/crim.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string>
#include <vector>

#include "run/init.hpp"

namespace vardel {
namespace {

// A column of crim_ref.txt with its expected results.
struct RefCase {
  std::string name;
  int nc = 0;
  std::vector<double> x, a, xmean;
  std::vector<int> y, noc;
  double mse = 0.0;
};

std::vector<RefCase> read_reference() {
  std::ifstream in(std::string(VARDEL_FIXTURE_DIR) + "/crim/crim_ref.txt");
  std::vector<RefCase> cases;
  std::string tag;
  for (RefCase c; in >> tag; cases.push_back(c)) {
    int n = 0, nk = 0;
    in >> c.name >> n >> c.nc >> nk;
    c.x.resize(n), c.y.resize(n), c.a.resize(c.nc), c.xmean.resize(nk), c.noc.assign(nk, 0);
    for (double& v : c.x) in >> v;
    for (int& v : c.y) in >> v, c.noc[v - 1] += 1;
    for (double& v : c.a) in >> v;
    in >> c.mse;
    for (double& v : c.xmean) in >> v;
  }
  return cases;
}

int code_of(double x, int nc) {
  const long j = std::lround(x);
  return j >= 1 && j <= nc ? static_cast<int>(j) : 0;
}

// Between-class over within-class sum of squares of a column.
double separation(const std::vector<double>& x, const RefCase& c) {
  std::vector<double> mean(c.noc.size(), 0.0);
  double grand = 0.0, between = 0.0, within = 0.0;
  for (std::size_t i = 0; i < x.size(); ++i) mean[c.y[i] - 1] += x[i] / c.noc[c.y[i] - 1];
  for (double v : x) grand += v / x.size();
  for (std::size_t k = 0; k < mean.size(); ++k) between += c.noc[k] * std::pow(mean[k] - grand, 2);
  for (std::size_t i = 0; i < x.size(); ++i) within += std::pow(x[i] - mean[c.y[i] - 1], 2);
  return between / within;
}

// Coordinates, sign included, bit for bit as the step-by-step reference.
// Also: the case scores are the unit-norm canonical variate, a category
// absent from the column sits at 0, codes outside 1..numcat take 0, and no
// random scoring of the categories separates the classes better.
TEST(Crim, MatchesReferenceColumns) {
  const auto cases = read_reference();
  ASSERT_EQ(cases.size(), 5u);
  for (const RefCase& c : cases) {
    SCOPED_TRACE(c.name);
    std::vector<double> x = c.x;
    const Coordinates got = crim1(x, c.y, c.noc, c.nc);
    ASSERT_EQ(got.a.size(), c.nc);
    for (int j = 1; j <= c.nc; ++j) EXPECT_EQ(got.a(j), c.a[j - 1]) << "a " << j;
    EXPECT_EQ(got.mse, c.mse);
    ASSERT_EQ(got.xmean.size(), static_cast<long>(c.xmean.size()));
    for (int k = 1; k <= got.xmean.size(); ++k) EXPECT_EQ(got.xmean(k), c.xmean[k - 1]);

    double mean = 0.0, norm2 = 0.0;
    for (std::size_t i = 0; i < x.size(); ++i) {
      const int j = code_of(c.x[i], c.nc);
      EXPECT_EQ(x[i], j > 0 ? got.a(j) : 0.0) << "case " << i + 1;
      mean += x[i] / x.size();
    }
    for (double v : x) norm2 += (v - mean) * (v - mean);
    EXPECT_NEAR(norm2, 1.0, 1e-13);
    for (int j = 1; j <= c.nc; ++j) {
      const bool seen =
          std::any_of(c.x.begin(), c.x.end(), [&](double v) { return code_of(v, c.nc) == j; });
      EXPECT_TRUE(seen || std::abs(got.a(j)) < 1e-15) << "absent category " << j;
    }

    if (c.mse == 0.0) continue;  // classes separated: every scoring is as good
    const double best = separation(x, c);
    unsigned state = 12345;
    for (int trial = 0; trial < 100; ++trial) {
      std::vector<double> score(c.nc + 1, 0.0), other;
      for (int j = 1; j <= c.nc; ++j) {
        state = state * 1103515245u + 12345u;
        score[j] = static_cast<double>(state >> 8) / (1u << 24) - 0.5;
      }
      for (double v : c.x) other.push_back(score[code_of(v, c.nc)]);
      EXPECT_LE(separation(other, c), best * (1 + 1e-12));
    }
  }
}

// Two categories give rank one: the rows of the dummy matrix agree up to
// sign, so the coordinates are +-c and -+c, c fixed by the unit norm of the
// case scores: 2 (4c/3)^2 + 4 (2c/3)^2 = 1, c = sqrt(3) / 4.
TEST(Crim, TwoCategoriesFollowTheSingleDummy) {
  std::vector<double> x = {1, 2, 2, 1, 2, 2};
  const Coordinates c = crim1(x, std::vector<int>{1, 2, 1, 2, 2, 2}, std::vector<int>{2, 4}, 2);
  EXPECT_NEAR(c.a(1), -c.a(2), 1e-15);
  EXPECT_NEAR(std::abs(c.a(1)), std::sqrt(3.0) / 4, 1e-15);
}

// A column whose only present category covers the node, or without any
// category, gives nothing to fit: mse 0, a 0, means the first value of x,
// and the columns keep their codes.
TEST(Crim, SingleCategoryGivesNothingToFit) {
  const std::vector<int> y = {1, 2, 2}, noc = {1, 2, 0};
  std::vector<double> x = {3, 3, 3}, all = {3, 1, 3, 2};
  for (const bool two_columns : {false, true}) {
    const Coordinates c = two_columns ? crim2(x, y, noc, all, 4) : crim1(x, y, noc, 4);
    EXPECT_EQ(c.a, FArray<double>(4, 0.0));
    EXPECT_EQ(c.mse, 0.0);
    EXPECT_EQ(c.xmean, FArray<double>(3, 3.0));
    EXPECT_EQ(x, (std::vector<double>{3, 3, 3}));
    EXPECT_EQ(all, (std::vector<double>{3, 1, 3, 2}));
  }
  std::vector<double> none = {0, 0};
  EXPECT_EQ(crim1(none, std::vector<int>{1, 2}, std::vector<int>{1, 1}, 3).a, FArray<double>(3));
  EXPECT_EQ(none, (std::vector<double>{0, 0}));
}

// crim2 fits on the subset as crim1 does and maps every node case with the
// same coordinates; a code unknown to the fit or out of range maps to 0.
TEST(Crim, SubsetFitAppliedToAllCases) {
  const RefCase ref = read_reference().front();  // categories 1, 2, 4 present
  std::vector<double> fit = ref.x, alone = ref.x, all = {4, 1, 3, 0, 2, 5, 1.5};
  const Coordinates c = crim2(fit, ref.y, ref.noc, all, ref.nc);
  const Coordinates d = crim1(alone, ref.y, ref.noc, ref.nc);
  EXPECT_TRUE(c.a == d.a && c.mse == d.mse && c.xmean == d.xmean && fit == alone);
  EXPECT_EQ(all, (std::vector<double>{c.a(4), c.a(1), c.a(3), 0, c.a(2), 0, c.a(2)}));
}

// crim replaces each categorical column as crim1 would, leaves the others,
// and stores the coordinates row by row, zero beyond each variable's
// categories (all zero for the single-category column 4).
TEST(Crim, WholeDataMatrix) {
  Init& in = init();
  in.reset();
  in.ncat = 3;
  in.catpos = FArray<int>(3), in.numcat = FArray<int>(3);
  in.catpos(1) = 1, in.catpos(2) = 3, in.catpos(3) = 4;
  in.numcat(1) = 3, in.numcat(2) = 5, in.numcat(3) = 2;
  const std::vector<int> y = {1, 2, 1, 2, 2, 1}, noc = {3, 3};
  const std::vector<std::vector<double>> cols = {
      {1, 2, 3, 1, 2, 3}, {0.5, 1.5, 2.5, 3.5, 4.5, 5.5}, {5, 1, 4, 2, 2, 1}, {2, 2, 2, 2, 2, 2}};
  std::vector<std::vector<double>> expect = cols;
  FArray<double> xdat(6, 4, 0.0), crimcord(5, 5, 0.0), expect_cord(3, 5, 0.0);
  for (int j = 1; j <= 4; ++j) std::copy(cols[j - 1].begin(), cols[j - 1].end(), &xdat(1, j));
  for (int c = 1; c <= 3; ++c) {
    const FArray<double> a = crim1(expect[in.catpos(c) - 1], y, noc, in.numcat(c)).a;
    for (int j = 1; j <= in.numcat(c); ++j) expect_cord(c, j) = a(j);
  }
  crim(xdat, y, noc, crimcord);
  EXPECT_EQ(crimcord, expect_cord);
  for (int j = 1; j <= 4; ++j) {
    for (int i = 1; i <= 6; ++i) EXPECT_EQ(xdat(i, j), expect[j - 1][i - 1]) << i << "," << j;
  }
  in.reset();
}

}  // namespace
}  // namespace vardel
