#include "split/boxcox.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>
#include <set>
#include <vector>

#include "split/guards.hpp"

namespace vardel {
namespace {

// The six-point grid in single precision.
const double kGrid6[] = {
    -2.0, -1.2000000476837158, -0.3999999761581421, 0.40000009536743164, 1.2000000476837158, 2.0};
const std::vector<int> kY = {1, 1, 1, 2, 2, 2}, kNoc = {3, 3};

// v and the criterion for power p, computed directly (two classes of three).
double spread(const std::vector<double>& x, double p) {
  std::vector<double> z;
  for (double v : x) z.push_back(p == 0 ? std::log(v) : (std::pow(v, p) - 1) / p);
  const double m1 = (z[0] + z[1] + z[2]) / 3, m2 = (z[3] + z[4] + z[5]) / 3;
  double ss = 0;
  for (int i = 0; i < 6; ++i) ss += std::pow(z[i] - (i < 3 ? m1 : m2), 2);
  return ss / 6;
}
double criterion(const std::vector<double>& x, double p) {
  double sum_log = 0;
  for (double v : x) sum_log += std::log(v);
  const double v = spread(x, p);
  return v < kTiny ? kLowGuard : std::log(v) - 2.0 / 6 * p * sum_log;
}

// Near 1e-9 the power 2 loses x^2 against 1, so v is 0 and the criterion the
// most negative double: a scan would take 2. The walk rises at -0.4 first.
TEST(Boxcox, WalkStopsAtFirstRise) {
  const std::vector<double> x0 = {3e-10, 3e-10, 5e-10, 6e-10, 4e-10, 9e-10};
  ASSERT_LT(criterion(x0, kGrid6[1]), criterion(x0, kGrid6[0]));
  ASSERT_GT(criterion(x0, kGrid6[2]), criterion(x0, kGrid6[1]));
  ASSERT_EQ(criterion(x0, kGrid6[5]), kLowGuard);

  std::vector<double> x = x0, xmean = {0, 0};
  double mse = 1.0;
  const BoxCoxResult r = boxcox(x, kY, mse, xmean, kNoc, 2);
  EXPECT_EQ(r.lambda, kGrid6[1]);
  EXPECT_EQ(r.shift, 0.0);
  EXPECT_DOUBLE_EQ(mse, spread(x0, kGrid6[1]));
  const double z5 = (std::pow(9e-10, kGrid6[1]) - 1) / kGrid6[1];
  EXPECT_DOUBLE_EQ(x[5], z5);
  EXPECT_DOUBLE_EQ(xmean[1], (x[3] + x[4] + z5) / 3);
}

// ln v alone would stop at -2 here, as would the term with its sign turned;
// with -(2 / n) p sum(ln x) the walk reaches 0.4 (six powers) and 0, the
// logarithm (eleven). A factor p - 1 in place of p would move every
// criterion by the same amount, so no walk can tell the two apart.
TEST(Boxcox, CriterionCarriesTheLogTerm) {
  const std::vector<double> x0 = {4, 12, 1, 3, 2, 6};
  for (const auto& [varsel, lambda] : {std::pair{2, kGrid6[3]}, std::pair{1, 0.0}}) {
    std::vector<double> x = x0, xmean = {0, 0};
    double mse = 1.0;
    EXPECT_EQ(boxcox(x, kY, mse, xmean, kNoc, varsel).lambda, lambda);
    EXPECT_DOUBLE_EQ(mse, spread(x0, lambda));
  }
}

TEST(Boxcox, ShiftToPositiveValues) {
  const struct {
    std::vector<double> x;
    double shift;
  } cases[] = {
      {{2, 5, 3}, 0},       // least value positive
      {{1e-20, 2, 3}, -1},  // positive but below eps: moved up by 1
      {{0, 4, 1}, -1},      // least value 0
      {{-3, 1, -1}, -5},    // 2 (-3) - (-1): the least value lands at 2
      {{-2, -2, -2}, -3},   // all equal: shifted to 0, then up by 1
  };
  for (const auto& c : cases) {
    std::vector<double> x = c.x, xmean = {0};
    double mse = 1.0;
    const BoxCoxResult r = boxcox(x, std::vector<int>(3, 1), mse, xmean, std::vector<int>{3}, 2);
    EXPECT_EQ(r.shift, c.shift) << c.x[0];
  }
}

// Spread 0 on the power scale at once (all values 1 after the shift): the
// first power stays. Spread below tiny on entry: power 1, values less 1.
TEST(Boxcox, NoSpread) {
  std::vector<double> x = {-2, -2, -2}, xmean = {0};
  double mse = 1.0;
  EXPECT_EQ(boxcox(x, std::vector<int>(3, 1), mse, xmean, std::vector<int>{3}, 2).lambda, -2);
  EXPECT_EQ(mse, 0.0);

  x = {1, 2, 5}, xmean = {1.5, 5}, mse = 1e-310;
  const BoxCoxResult r = boxcox(x, std::vector<int>{1, 1, 2}, mse, xmean, kNoc, 1);
  EXPECT_EQ(r.lambda, 1.0);
  EXPECT_EQ(r.shift, 0.0);
  EXPECT_EQ(mse, 1e-310);
  EXPECT_EQ(x, (std::vector<double>{0, 1, 4}));
  EXPECT_EQ(xmean, (std::vector<double>{0.5, 4}));
}

// The walk done plainly, value by value, one power after another, for
// columns long enough that boxcox transforms distinct values or tries
// several powers at once: the results must agree bit for bit.
struct PlainWalk {
  std::vector<double> x;
  std::vector<double> xmean;
  double mse = 0.0;
  double lambda = 0.0;
  double shift = 0.0;
};

PlainWalk plain_walk(std::vector<double> x, const std::vector<int>& y, int nclass) {
  PlainWalk w;
  double m = 1.7976931348623157e308;
  for (double v : x) m = v < m ? v : m;
  if (m == 0.0) {
    w.shift = -1.0;
  } else if (m < 0.0) {
    double s = m;
    for (double v : x)
      if (v > m && (s == m || v < s)) s = v;
    w.shift = 2.0 * m - s;
  }
  bool near_zero = false;
  for (double& v : x) near_zero = (v = v - w.shift) < kEps || near_zero;
  if (near_zero) {
    w.shift -= 1.0;
    for (double& v : x) v = v + 1.0;
  }
  double sum_log = 0.0;
  for (double v : x) sum_log += std::log(v);
  const double n = static_cast<double>(x.size());
  double best = 1.7976931348623157e308;
  for (int g = 0; g < 6; ++g) {
    const double p = kGrid6[g];
    std::vector<double> z;
    for (double v : x) z.push_back((std::pow(v, p) - 1.0) / p);
    std::vector<double> mean(static_cast<std::size_t>(nclass), 0.0);
    std::vector<int> count(static_cast<std::size_t>(nclass), 0);
    for (std::size_t i = 0; i < z.size(); ++i) {
      mean[static_cast<std::size_t>(y[i] - 1)] += z[i];
      ++count[static_cast<std::size_t>(y[i] - 1)];
    }
    for (std::size_t k = 0; k < mean.size(); ++k)
      if (count[k] != 0) mean[k] /= count[k];
    double ss = 0.0;
    for (std::size_t i = 0; i < z.size(); ++i) {
      const double d = z[i] - mean[static_cast<std::size_t>(y[i] - 1)];
      ss += d * d;
    }
    const double v = ss / n;
    const double c = v < kTiny ? kLowGuard : std::log(v) - 2.0 / n * p * sum_log;
    if (g > 0 && best <= c) break;
    best = c;
    w.x = z;
    w.xmean = mean;
    w.mse = v;
    w.lambda = p;
  }
  return w;
}

TEST(Boxcox, RepeatedValuesGiveThePlainWalkBitForBit) {
  std::mt19937 rng(3);
  std::normal_distribution<double> normal(0.0, 1.0);
  // Values to three decimals, shaped so that walks end at different powers,
  // with a shift or without.
  const std::vector<std::function<double(double)>> shapes = {
      [](double v) { return v; }, [](double v) { return std::exp(v); },
      [](double v) { return v * v + 0.5; }, [](double v) { return std::exp(-2.0 * v) + 3.0; }};
  std::set<double> powers;
  for (std::size_t shape = 0; shape < shapes.size(); ++shape) {
    // Long columns are tried several powers at a time, on more than one
    // thread; the last has mostly distinct values.
    for (int n : {64, 500, 5000, 70000, -70000}) {
      const double digits = n > 0 ? 1e3 : 1e12;
      n = std::abs(n);
      std::vector<double> x;
      std::vector<int> y;
      for (int i = 0; i < n; ++i) {
        const int k = 1 + static_cast<int>(rng() % 3);
        y.push_back(k);
        x.push_back(std::round(shapes[shape](normal(rng) + 0.4 * k) * digits) / digits);
      }
      std::vector<int> noc(3, 0);
      for (int k : y) ++noc[static_cast<std::size_t>(k - 1)];
      const PlainWalk want = plain_walk(x, y, 3);
      std::vector<double> xmean(3, 0.0);
      double mse = 1.0;
      const BoxCoxResult got = boxcox(x, y, mse, xmean, noc, 2);
      powers.insert(got.lambda);
      EXPECT_EQ(got.lambda, want.lambda) << shape << " " << n;
      EXPECT_EQ(got.shift, want.shift) << shape << " " << n;
      EXPECT_EQ(mse, want.mse) << shape << " " << n;
      EXPECT_EQ(x, want.x) << shape << " " << n;
      EXPECT_EQ(xmean, want.xmean) << shape << " " << n;
    }
  }
  EXPECT_GE(powers.size(), 3u);  // walks that end inside a pair and after one
}

}  // namespace
}  // namespace vardel
