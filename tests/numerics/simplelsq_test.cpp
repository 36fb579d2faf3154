#include "numerics/simplelsq.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "numerics/qr_lsq.hpp"

namespace vardel {
namespace {

struct Fit {
  int fault = 99;
  double constant = NAN, slope = NAN;
};

Fit fit(const std::vector<double>& x, const std::vector<double>& y) {
  Fit f;
  simplelsq(x, y, static_cast<int>(x.size()), f.fault, f.constant, f.slope);
  return f;
}

// An exact line, and noisy data against the closed-form solution.
TEST(Simplelsq, MatchesClosedForm) {
  const struct {
    std::vector<double> x, y;
  } cases[] = {
      {{0.3, 1.7, -2.2, 4.1, 9.5, 3.3}, {2.275, 1.225, 4.15, -0.575, -4.625, 0.025}},
      {{1.0, 2.0, 3.5, 4.0, 5.25, 6.0, 7.5, 8.0, 1e3},
       {2.1, 2.4, 3.9, 3.3, 4.6, 12.0, 5.1, 5.4, 480.0}},
  };
  for (const auto& c : cases) {
    const double n = static_cast<double>(c.x.size());
    double mx = 0.0, my = 0.0, sxx = 0.0, sxy = 0.0;
    for (std::size_t i = 0; i < c.x.size(); ++i) mx += c.x[i] / n, my += c.y[i] / n;
    for (std::size_t i = 0; i < c.x.size(); ++i) {
      sxx += (c.x[i] - mx) * (c.x[i] - mx);
      sxy += (c.x[i] - mx) * (c.y[i] - my);
    }
    const double slope = sxy / sxx;
    const Fit f = fit(c.x, c.y);
    EXPECT_EQ(f.fault, 0);
    EXPECT_NEAR(f.slope, slope, 1e-13 * std::abs(slope));
    EXPECT_NEAR(f.constant, my - slope * mx, 1e-12 * std::abs(my));
  }
}

// With no spread in x the slope column depends on the constant's: the slope
// is set to 0 and the constant is the mean of y.
TEST(Simplelsq, ConstantPredictorIsFoundDependent) {
  const struct {
    const char* what;
    std::vector<double> x, y;
  } cases[] = {
      {"x constant", {3.0, 3.0, 3.0, 3.0}, {1.0, 2.0, 4.0, 7.0}},
      {"x zero", {0.0, 0.0, 0.0}, {1.5, -2.0, 6.5}},
      {"x awkward constant", {0.1, 0.1, 0.1, 0.1, 0.1}, {0.3, 0.7, 1.1, 0.2, 0.9}},
      {"one case", {4.0}, {2.5}},
  };
  for (const auto& c : cases) {
    double mean = 0.0;
    for (double yi : c.y) mean += yi;
    mean /= static_cast<double>(c.y.size());
    const Fit f = fit(c.x, c.y);
    EXPECT_EQ(f.fault, -1) << c.what;
    EXPECT_EQ(f.slope, 0.0) << c.what;
    EXPECT_NEAR(f.constant, mean, 1e-14 * std::abs(mean)) << c.what;
  }
}

// A dependent column ahead of an independent one: its row must be folded
// into the rows below, so that the remaining coefficients are still right.
TEST(QrLsq, DependentColumnBeforeOthersIsMovedOut) {
  QrLsq q;
  q.init_qr_lsq(3, true);
  const double x1[] = {1.0, 2.0, 4.0, -1.0, 3.0, 0.5};
  const double x3[] = {2.0, -1.0, 0.0, 5.0, 1.5, 2.5};
  for (int i = 0; i < 6; ++i) {
    const std::array<double, 3> row = {x1[i], 2.0 * x1[i], x3[i]};
    q.includ(1.0, row, 1.0 + 0.5 * x1[i] - 2.0 * x3[i]);
  }
  q.tolset();
  std::array<bool, 4> lindep{};
  int fault = 0;
  q.sing(lindep, fault);
  EXPECT_EQ(fault, -1);
  EXPECT_EQ(lindep, (std::array<bool, 4>{false, false, true, false}));
  std::array<double, 4> beta{};
  q.regcf(beta, 4, fault);
  EXPECT_EQ(fault, -3);  // the dependent column's coefficient was set to 0
  EXPECT_EQ(beta[2], 0.0);
  EXPECT_NEAR(beta[0], 1.0, 1e-13);
  EXPECT_NEAR(beta[1], 0.5, 1e-13);
  EXPECT_NEAR(beta[3], -2.0, 1e-13);
  EXPECT_NEAR(q.sserr(), 0.0, 1e-24);
}

}  // namespace
}  // namespace vardel
