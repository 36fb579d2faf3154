#include "split/exhaust.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "run/init.hpp"
#include "split/getpjlt.hpp"
#include "split/node_data.hpp"

namespace vardel {
namespace {

using split_test::columns;
using split_test::missing_where;

constexpr double kMissing = -99.0;
using Ints = std::vector<int>;

// Two classes; 'n' or 'c' per column; cost12 is the cost of predicting class 1
// for a case of class 2 (unequal costs unless 1).
void set_run(const std::string& types, const Ints& numcat, double cost12 = 1.0) {
  Init& in = init();
  in.reset();
  in.nclass = 2;
  in.vtype.assign(static_cast<int>(types.size()), 'n');
  for (std::size_t j = 0; j < types.size(); ++j) in.vtype.vector()[j] = types[j];
  in.numcat.assign(static_cast<int>(numcat.size()), 0);
  in.numcat.vector() = numcat;
  in.costtype = cost12 == 1.0 ? 1 : 2;
  in.cost.assign(2, 2, 0.0);
  in.cost(1, 2) = cost12;
  in.cost(2, 1) = 1.0;
}

class Exhaust : public ::testing::Test {
 protected:
  void TearDown() override { init().reset(); }
  ExhaustResult run(const FArray<double>& x, const Ints& y, int var = 0) {
    return exhaust(x, y, missing_where(x, kMissing), var, csize, prob);
  }
  Ints csize{3, 3};
  std::vector<double> prob{0.5, 0.5};
};

TEST_F(Exhaust, GetpjltWeighsCountsByPriorsOrAlteredPriors) {
  // csize (6, 4). Cost 3 for predicting 1 for class 2 alters the priors
  // (0.5, 0.5) to (0.5 * 1, 0.5 * 3) / 2.
  const struct {
    double cost12;
    std::vector<double> prob;
    Ints counts;
    double pj1;
  } cases[] = {{1.0, {0.5, 0.5}, {3, 1}, 2.0 / 3.0},
               {1.0, {0.2, 0.8}, {3, 1}, 1.0 / 3.0},
               {3.0, {0.5, 0.5}, {3, 1}, 0.4}};
  for (const auto& k : cases) {
    set_run("n", {}, k.cost12);
    const FArray<double> pj = getpjlt(k.counts, Ints{6, 4}, k.prob);
    EXPECT_DOUBLE_EQ(pj(1), k.pj1) << k.cost12 << " " << k.prob[0];
    EXPECT_DOUBLE_EQ(pj(2), 1.0 - k.pj1) << k.cost12 << " " << k.prob[0];
  }
  EXPECT_TRUE(std::isnan(getpjlt(Ints{0, 0}, Ints{6, 4}, prob)(1)));  // an empty side
}

TEST_F(Exhaust, HandWorkedSplits) {
  // Numerical, impurities at 1.5 .. 5.5: 0.2, 0.125, 2/9, 0.125, 0.2; the tie
  // of 2.5 and 4.5 is exact and the lower stays. Column 1 has no midpoint.
  set_run("nn", {});
  ExhaustResult r = run(columns({{1, 1, 1, 1, 1, 1}, {1, 2, 3, 4, 5, 6}}), {1, 1, 2, 1, 2, 2});
  EXPECT_EQ(r.var, 2);
  EXPECT_EQ(r.cutpt, 2.5);
  EXPECT_EQ(r.py.vector(), (Ints{1, 1, 2, 2, 2, 2}));

  // Categorical, counts by code (2, 0), (1, 2), (0, 1), (0, 0): order by share
  // of class 1 is 3, 4, 2, 1; boundaries 0.2, 0.2, 0.125.
  set_run("c", {4});
  r = run(columns({{1, 1, 2, 2, 2, 3}}), {1, 1, 1, 2, 2, 2});
  EXPECT_EQ(r.c, 1);
  EXPECT_EQ(r.ncutcat.vector(), (Ints{3, 1}));
  EXPECT_EQ(r.cutcat.vector(), (Ints{3, 4, 2, 1}));
  EXPECT_EQ(r.py.vector(), (Ints{2, 2, 1, 1, 1, 1}));
}

TEST_F(Exhaust, CategoricalWinsATieAndOnlyATie) {
  set_run("ncnc", {2, 2});
  csize = {2, 2};
  auto x = columns({{1, 2, 3, 4}, {1, 1, 2, 2}, {1, 2, 3, 4}, {1, 2, 1, 2}});
  EXPECT_EQ(run(x, {1, 1, 2, 2}).var, 2);  // columns 1 and 2 both separate the classes
  EXPECT_EQ(run(x, {1, 1, 2, 2}, 4).c, 2);
  x(4, 2) = 1;  // column 2 spoilt: the first numerical column wins
  const ExhaustResult r = run(x, {1, 1, 2, 2});
  EXPECT_EQ(r.var, 1);
  EXPECT_EQ(r.cutpt, 2.5);
}

TEST_F(Exhaust, MissingCellsAreNotCountedButAreSent) {
  // Cases 5 and 6 (class 2) filled with 0.5 would move the split to 0.75 if
  // counted. Column 2 (one category seen) has an empty side at every boundary.
  set_run("nc", {3});
  csize = {2, 4};
  const auto x = columns({{1, 2, 3, 4, kMissing, kMissing}, {2, 2, 2, 2, kMissing, 2}});
  FArray<double> filled = x;
  filled(5, 2) = 2;
  for (const double fill : {0.5, 3.5}) {
    filled(5, 1) = filled(6, 1) = fill;
    const ExhaustResult r =
        exhaust(filled, Ints{1, 1, 2, 2, 2, 2}, missing_where(x, kMissing), 0, csize, prob);
    EXPECT_EQ(r.var, 1);
    EXPECT_EQ(r.cutpt, 2.5);
    const int side = fill < 2.5 ? 1 : 2;
    EXPECT_EQ(r.py.vector(), (Ints{1, 1, 2, 2, side, side}));
  }
}

TEST_F(Exhaust, NoCandidateLeavesEveryCaseOnTheSecondSide) {
  const double m = kMissing;
  const struct {
    std::string types;
    Ints numcat;
    FArray<double> x;
  } cases[] = {{"nc", {3}, columns({{m, m, m}, {m, m, m}})},
               {"nc", {3}, columns({{7, 7, m}, {2, m, 2}})},
               {"c", {1}, columns({{1, 1, 1}})}};
  for (const auto& k : cases) {
    set_run(k.types, k.numcat);
    const ExhaustResult r = run(k.x, {1, 2, 2});
    EXPECT_FALSE(r.found);
    EXPECT_EQ(r.var, 0);
    EXPECT_EQ(r.py.vector(), (Ints{2, 2, 2}));
  }
}

// The best midpoint of column j, the cases on each side counted afresh.
void direct_search(const FArray<double>& x, const FArray<char>& mis, const Ints& y, int j,
                   const Ints& csize, const std::vector<double>& prob, double& best, double& cut) {
  const int n = static_cast<int>(y.size());
  std::vector<double> v;
  for (int i = 1; i <= n; ++i)
    if (mis(i, j) == 'n') v.push_back(x(i, j));
  std::sort(v.begin(), v.end());
  for (std::size_t i = 0; i + 1 < v.size(); ++i) {
    if (!(v[i] < v[i + 1])) continue;
    const double t = 0.5 * (v[i] + v[i + 1]);
    Ints l{0, 0}, r{0, 0};
    for (int k = 1; k <= n; ++k)
      if (mis(k, j) == 'n') ++(x(k, j) <= t ? l : r)[y[k - 1] == 1 ? 0 : 1];
    const FArray<double> pl = getpjlt(l, csize, prob);
    const FArray<double> pr = getpjlt(r, csize, prob);
    const double imp = pl(1) * pl(2) * static_cast<double>(l[0] + l[1]) / n +
                       pr(1) * pr(2) * static_cast<double>(r[0] + r[1]) / n;
    if (imp < best) best = imp, cut = t;
  }
}

TEST_F(Exhaust, SweepMatchesADirectCountPerMidpoint) {
  // Column 3 draws from neighbouring doubles, where a midpoint can round onto
  // one of its two values.
  std::mt19937 gen(20240611);
  const double e = std::numeric_limits<double>::epsilon();
  for (int trial = 0; trial < 300; ++trial) {
    const int n = 2 + static_cast<int>(gen() % 25);
    set_run("nnn", {}, trial % 2 == 0 ? 1.0 : 0.5 + static_cast<double>(gen() % 5));
    const double p1 = 0.1 + 0.1 * static_cast<double>(gen() % 9);
    prob = {p1, 1.0 - p1};
    csize = {n + static_cast<int>(gen() % 5), n};
    FArray<double> x(n, 3, 0.0);
    Ints y(static_cast<std::size_t>(n));
    for (int i = 1; i <= n; ++i) {
      y[i - 1] = 1 + static_cast<int>(gen() % 2);
      x(i, 1) = static_cast<double>(gen() % 6);
      x(i, 2) = static_cast<double>(gen() % 1000) / 7.0;
      x(i, 3) = 1.0 + e * static_cast<double>(gen() % 5);
      for (int j = 1; j <= 3; ++j)
        if (gen() % 6 == 0) x(i, j) = kMissing;
    }
    const FArray<char> mis = missing_where(x, kMissing);
    for (int j = 1; j <= 3; ++j) {
      double best = std::numeric_limits<double>::max(), cut = 0.0;
      direct_search(x, mis, y, j, csize, prob, best, cut);
      const ExhaustResult r = exhaust(x, y, mis, j, csize, prob);
      ASSERT_EQ(r.found, best < std::numeric_limits<double>::max()) << trial << " " << j;
      ASSERT_EQ(r.cutpt, cut) << trial << " " << j;
    }
  }
}

}  // namespace
}  // namespace vardel
