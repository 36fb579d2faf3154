#include "numerics/lowess.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string>
#include <vector>

namespace vardel {
namespace {

struct Smooth {
  std::vector<double> ys, rw, res;
};

Smooth smooth(const std::vector<double>& x, const std::vector<double>& y, double f, int nsteps,
              double delta) {
  const std::size_t n = x.size();
  Smooth s{std::vector<double>(n, NAN), std::vector<double>(n, NAN), std::vector<double>(n, NAN)};
  lowess(x, y, static_cast<int>(n), f, nsteps, delta, s.ys, s.rw, s.res);
  return s;
}

TEST(Lowess, ReproducesAStraightLine) {
  // Irregular spacing and ties in x.
  const std::vector<double> x = {-3.0, -1.5, 0.0, 0.0, 0.7, 2.0, 2.0, 2.0, 5.5, 6.0, 9.25, 12.0};
  std::vector<double> y;
  for (double xi : x) y.push_back(1.25 + 0.4 * xi);
  // No robustness steps: on a line the residuals are rounding noise, and
  // bisquare weights scaled by their median would only amplify it.
  for (double f : {0.2, 0.5, 2.0 / 3.0, 1.0})
    for (double delta : {0.0, 2.5}) {
      const Smooth s = smooth(x, y, f, 0, delta);
      for (std::size_t i = 0; i < x.size(); ++i) {
        EXPECT_NEAR(s.ys[i], y[i], 1e-13) << "f " << f << " delta " << delta << " point " << i + 1;
        EXPECT_NEAR(s.res[i], 0.0, 1e-13);
      }
    }
}

// Values computed from the definition in high precision (see the fixture's
// generating script).
TEST(Lowess, MatchesReferenceValues) {
  std::ifstream in(std::string(VARDEL_FIXTURE_DIR) + "/linalg/lowess_ref.txt");
  ASSERT_TRUE(in);
  std::string word;
  int n = 0;
  in >> word >> n;
  auto read = [&in, n](const char* tag) {
    std::string w;
    in >> w;
    EXPECT_EQ(w, tag);
    std::vector<double> v(static_cast<std::size_t>(n));
    for (double& vi : v) in >> vi;
    return v;
  };
  const std::vector<double> x = read("x");
  const std::vector<double> y = read("y");
  int cases = 0;
  double f = 0.0;
  int nsteps = 0;
  while (in >> word >> f >> nsteps) {
    const std::vector<double> ys = read("ys");
    const std::vector<double> rw = read("rw");
    const Smooth s = smooth(x, y, f, nsteps, 0.0);
    for (int i = 0; i < n; ++i) {
      EXPECT_NEAR(s.ys[i], ys[i], 1e-12) << "f " << f << " nsteps " << nsteps << " ys " << i + 1;
      if (nsteps > 0) {
        EXPECT_NEAR(s.rw[i], rw[i], 1e-12) << "f " << f << " rw " << i + 1;
      }
    }
    ++cases;
  }
  EXPECT_EQ(cases, 4);
}

TEST(Lowess, RobustnessStepsDownWeightAnOutlier) {
  std::vector<double> x, y;
  for (int i = 1; i <= 30; ++i) {
    x.push_back(i);
    y.push_back(0.5 * i + 0.3 * std::sin(1.7 * i));
  }
  y[14] += 6.0;  // outlier at x = 15, where the trend is 7.5
  const Smooth plain = smooth(x, y, 0.4, 0, 0.0);
  const Smooth robust = smooth(x, y, 0.4, 2, 0.0);
  EXPECT_EQ(robust.rw[14], 0.0);
  // Points beyond it, outside its pull, keep most of their weight.
  EXPECT_GT(*std::min_element(robust.rw.begin() + 15, robust.rw.end()), 0.8);
  // The plain fit is pulled up by the outlier; the robust one follows the
  // trend of the other points.
  EXPECT_GT(plain.ys[14] - 7.5, 0.8);
  EXPECT_NEAR(robust.ys[14], 7.5, 0.2);
}

TEST(Lowess, PointsWithinDeltaAreInterpolated) {
  std::vector<double> x, y;
  for (int i = 1; i <= 10; ++i) {
    x.push_back(i);
    y.push_back(std::sin(0.7 * i) + 0.05 * i * i);
  }
  const Smooth every = smooth(x, y, 0.4, 0, 0.0);
  const Smooth skip = smooth(x, y, 0.4, 0, 2.5);
  // With delta 2.5 the points at x = 1, 3, 5, 7, 9, 10 are fitted, the
  // others lie half way between their neighbours.
  for (int i : {1, 3, 5, 7, 9, 10}) EXPECT_EQ(skip.ys[i - 1], every.ys[i - 1]) << i;
  for (int i : {2, 4, 6, 8})
    EXPECT_NEAR(skip.ys[i - 1], 0.5 * (skip.ys[i - 2] + skip.ys[i]), 1e-15) << i;
}

TEST(Lowest, FailsWhenEveryWeightIsZero) {
  const std::vector<double> x = {1.0, 2.0, 3.0, 4.0};
  const std::vector<double> y = {1.0, 3.0, 2.0, 5.0};
  std::vector<double> w(4);
  const std::vector<double> rw = {0.0, 0.0, 0.0, 1.0};
  double ys = -7.0;
  bool ok = true;
  lowest(x, y, 4, 2.0, ys, 1, 3, w, true, rw, ok);
  EXPECT_FALSE(ok);
  EXPECT_EQ(ys, -7.0);
}

}  // namespace
}  // namespace vardel
