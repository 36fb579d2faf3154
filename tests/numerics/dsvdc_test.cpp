#include "numerics/dsvdc.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace vardel {
namespace {

struct Svd {
  std::vector<double> s, e;
  FArray<double> u, v;
  int info = -1;
};

Svd run(FArray<double> x, int n, int p, int job) {
  Svd r;
  r.s.assign(static_cast<std::size_t>(std::min(n + 1, p)), 0.0);
  r.e.assign(static_cast<std::size_t>(p), 0.0);
  dsvdc(x, n, p, r.s, r.e, r.u, r.v, job, r.info);
  return r;
}

// Entries in [-1, 1) from a fixed linear congruential sequence.
FArray<double> pseudo_random(int n, int p, std::uint32_t seed) {
  FArray<double> x(n, p, 0.0);
  for (auto& xi : x) {
    seed = seed * 1664525u + 1013904223u;
    xi = static_cast<double>(seed >> 8) / 8388608.0 - 1.0;
  }
  return x;
}

// The properties every decomposition must have, whatever the sign choices:
// x = u diag(s) v', orthonormal columns of u and v, s non-negative and
// non-increasing.
void expect_valid(const FArray<double>& x, int n, int p, const Svd& r, int ncu) {
  const int k = std::min(n, p);
  ASSERT_EQ(r.info, 0);
  double xnorm = 0.0;
  for (double xi : x) xnorm = std::max(xnorm, std::abs(xi));
  for (int i = 1; i < k; ++i) EXPECT_GE(r.s[i - 1], r.s[i]) << "s not descending at " << i;
  for (int i = 1; i <= k; ++i) EXPECT_GE(r.s[i - 1], 0.0);
  for (int i = 1; i <= n; ++i) {
    for (int j = 1; j <= p; ++j) {
      double sum = 0.0;
      for (int l = 1; l <= k; ++l) sum += r.u(i, l) * r.s[l - 1] * r.v(j, l);
      EXPECT_NEAR(sum, x(i, j), 1e-13 * xnorm * k) << "x(" << i << "," << j << ")";
    }
  }
  auto expect_orthonormal = [](const FArray<double>& a, int rows, int cols, const char* what) {
    for (int i = 1; i <= cols; ++i)
      for (int j = 1; j <= cols; ++j) {
        double dot = 0.0;
        for (int l = 1; l <= rows; ++l) dot += a(l, i) * a(l, j);
        EXPECT_NEAR(dot, i == j ? 1.0 : 0.0, 1e-14 * rows) << what << " columns " << i << "," << j;
      }
  };
  expect_orthonormal(r.u, n, ncu, "u");
  expect_orthonormal(r.v, p, p, "v");
}

TEST(Dsvdc, DecomposesSquareTallAndWideMatrices) {
  const struct {
    int n, p;
  } shapes[] = {{4, 4}, {7, 3}, {3, 7}, {1, 5}, {5, 1}, {1, 1}, {9, 9}, {12, 5}};
  std::uint32_t seed = 17;
  for (const auto& sh : shapes) {
    SCOPED_TRACE(testing::Message() << sh.n << " by " << sh.p);
    const FArray<double> x = pseudo_random(sh.n, sh.p, seed++);
    expect_valid(x, sh.n, sh.p, run(x, sh.n, sh.p, 11), sh.n);
    // The tens digit 2 gives only the first min(n, p) left vectors.
    const Svd thin = run(x, sh.n, sh.p, 21);
    EXPECT_EQ(thin.u.extent2(), std::min(sh.n, sh.p));
    expect_valid(x, sh.n, sh.p, thin, std::min(sh.n, sh.p));
  }
}

TEST(Dsvdc, RankOneMatrixHasOneNonZeroSingularValue) {
  const double a[] = {1.0, -2.0, 0.3, 3.0, -1.7};  // |a| = sqrt(16.98)
  const double b[] = {0.2, 1.1, -0.5, 0.25};       // |b| = sqrt(1.5625)
  FArray<double> x(5, 4, 0.0);
  for (int j = 1; j <= 4; ++j)
    for (int i = 1; i <= 5; ++i) x(i, j) = a[i - 1] * b[j - 1];
  const Svd r = run(x, 5, 4, 11);
  expect_valid(x, 5, 4, r, 5);
  EXPECT_NEAR(r.s[0], std::sqrt(16.98 * 1.5625), 1e-14 * r.s[0]);
  for (int i = 2; i <= 4; ++i) EXPECT_LE(r.s[i - 1], 4e-16 * r.s[0]) << "s(" << i << ")";
}

// Cases of the reference file: input, then what the reference routine gave.
struct RefCase {
  std::string name;
  int n = 0, p = 0, job = 0, info = 0;
  FArray<double> x, s, e, u, v;
};

std::vector<RefCase> read_reference(const std::string& path) {
  std::ifstream in(path);
  std::vector<RefCase> cases;
  std::string word;
  auto read_matrix = [&in](FArray<double>& a, int rows, int cols) {
    a.assign(rows, cols, 0.0);
    for (double& ai : a) in >> ai;
  };
  for (RefCase c; in >> word >> c.name >> c.n >> c.p >> c.job; c = RefCase{}) {
    read_matrix(c.x, c.n, c.p);
    in >> word >> c.info;
    read_matrix(c.s, std::min(c.n + 1, c.p), 1);
    read_matrix(c.e, c.p, 1);
    const int jobu = (c.job % 100) / 10;
    if (jobu != 0) read_matrix(c.u, c.n, jobu > 1 ? std::min(c.n, c.p) : c.n);
    if (c.job % 10 != 0) read_matrix(c.v, c.p, c.p);
    if (!in) break;
    cases.push_back(c);
  }
  return cases;
}

// Signs and order of the vectors matter downstream, so compare element by
// element with the reference rendering of the same algorithm.
TEST(Dsvdc, MatchesReferenceValuesIncludingSigns) {
  const auto cases = read_reference(std::string(VARDEL_FIXTURE_DIR) + "/linalg/dsvdc_ref.txt");
  ASSERT_EQ(cases.size(), 13u);
  const double tol = 1e-14;
  for (const RefCase& c : cases) {
    SCOPED_TRACE(testing::Message() << c.name << " job " << c.job);
    const Svd r = run(c.x, c.n, c.p, c.job);
    EXPECT_EQ(r.info, c.info);
    for (int i = 1; i <= c.s.size(); ++i) EXPECT_NEAR(r.s[i - 1], c.s(i), tol) << "s " << i;
    for (int i = 1; i <= c.e.size(); ++i) EXPECT_NEAR(r.e[i - 1], c.e(i), tol) << "e " << i;
    ASSERT_EQ(r.u.size(), c.u.size());
    for (int i = 1; i <= c.u.size(); ++i) EXPECT_NEAR(r.u(i), c.u(i), tol) << "u " << i;
    ASSERT_EQ(r.v.size(), c.v.size());
    for (int i = 1; i <= c.v.size(); ++i) EXPECT_NEAR(r.v(i), c.v(i), tol) << "v " << i;
  }
}

}  // namespace
}  // namespace vardel
