#include "numerics/inc_beta.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <string>

#include "numerics/constants_nswc.hpp"
#include "numerics/distrib_reference.hpp"

namespace vardel {
namespace {

using testing_distrib::reference_rows;
using testing_distrib::rel_err;

TEST(Bratio, RejectsBadArguments) {
  struct Case {
    double a, b, x, y;
    int ierr;
  };
  const Case cases[] = {
      {-1.0, 2.0, 0.5, 0.5, 1}, {2.0, -1.0, 0.5, 0.5, 1}, {0.0, 0.0, 0.5, 0.5, 2},
      {2.0, 3.0, -0.1, 1.1, 3}, {2.0, 3.0, 0.5, 1.5, 4},  {2.0, 3.0, 0.5, 0.6, 5},
      {0.0, 3.0, 0.0, 1.0, 6},  {2.0, 0.0, 1.0, 0.0, 7},
  };
  for (const Case& c : cases) {
    double w = -1.0;
    double w1 = -1.0;
    int ierr = -1;
    bratio(c.a, c.b, c.x, c.y, w, w1, ierr);
    EXPECT_EQ(ierr, c.ierr) << c.a << " " << c.b << " " << c.x;
    EXPECT_EQ(w, 0.0);
    EXPECT_EQ(w1, 0.0);
  }
}

TEST(Bratio, EndsAndDegenerateParameters) {
  struct Case {
    double a, b, x, w;
  };
  const Case cases[] = {
      {2.0, 3.0, 0.0, 0.0},
      {2.0, 3.0, 1.0, 1.0},  // at the ends of [0, 1]
      {0.0, 3.0, 0.4, 1.0},
      {2.0, 0.0, 0.4, 0.0},  // all the mass at 0 or at 1
  };
  for (const Case& c : cases) {
    double w;
    double w1;
    int ierr;
    bratio(c.a, c.b, c.x, 1.0 - c.x, w, w1, ierr);
    EXPECT_EQ(ierr, 0);
    EXPECT_EQ(w, c.w) << c.a << " " << c.b << " " << c.x;
    EXPECT_EQ(w1, 1.0 - c.w);
  }
}

// The reference rows reach every way of evaluating the ratio: each of the
// series, the finite sums, the continued fraction and both asymptotic forms.
TEST(Bratio, MatchesReferenceValuesOnEveryPath) {
  const auto rows = reference_rows("bratio");
  ASSERT_GE(rows.size(), 19u);
  for (const auto& r : rows) {
    double w;
    double w1;
    int ierr;
    bratio(r.v[0], r.v[1], r.v[2], 1.0 - r.v[2], w, w1, ierr);
    ASSERT_EQ(ierr, 0);
    EXPECT_LE(rel_err(w, r.v[3]), 1e-14) << r.v[0] << " " << r.v[1] << " " << r.v[2];
    EXPECT_LE(rel_err(w1, r.v[4]), 1e-14) << r.v[0] << " " << r.v[1] << " " << r.v[2];
  }
}

// The helpers carry long tables of coefficients; a slip in any digit that
// matters shows here before it shows in a tail probability.
TEST(IncBetaCompanions, MatchReferenceValues) {
  using namespace inc_beta;
  const std::map<std::string, std::function<double(double, double)>> fn = {
      {"erf", [](double a, double) { return inc_beta::erf(a); }},
      {"erfc", [](double a, double) { return erfc1(0, a); }},
      {"erfcx", [](double a, double) { return erfc1(1, a); }},
      {"gam1", [](double a, double) { return gam1(a); }},
      {"gamln", [](double a, double) { return gamln(a); }},
      {"gamln1", [](double a, double) { return gamln1(a); }},
      {"psi", [](double a, double) { return psi(a); }},
      {"alnrel", [](double a, double) { return alnrel(a); }},
      {"rlog1", [](double a, double) { return rlog1(a); }},
      {"rexp", [](double a, double) { return rexp(a); }},
      {"algdiv", [](double a, double b) { return algdiv(a, b); }},
      {"betaln", [](double a, double b) { return betaln(a, b); }},
      {"bcorr", [](double a, double b) { return bcorr(a, b); }},
  };
  const auto rows = reference_rows("companion");
  ASSERT_GT(rows.size(), 90u);
  for (const auto& r : rows) {
    ASSERT_TRUE(fn.count(r.name)) << r.name;
    const double got = fn.at(r.name)(r.v[0], r.v[1]);
    EXPECT_LE(rel_err(got, r.v[2]), 5e-15) << r.name << "(" << r.v[0] << ", " << r.v[1] << ")";
  }
}

TEST(ConstantsNswc, DescribeIeeeDouble) {
  using namespace constants_nswc;
  using D = std::numeric_limits<double>;
  EXPECT_EQ(dpmpar(1), D::epsilon());
  EXPECT_EQ(dpmpar(2), D::min());
  EXPECT_EQ(dpmpar(3), D::max());
  EXPECT_EQ(ipmpar(3), std::numeric_limits<int>::max());
  // exp stays finite at exparg(0) and non-zero at exparg(1), just inside range.
  EXPECT_TRUE(std::isfinite(std::exp(exparg(0))));
  EXPECT_GT(std::exp(exparg(1)), 0.0);
  EXPECT_GT(exparg(0), 709.0);
  EXPECT_LT(exparg(1), -708.0);
}

}  // namespace
}  // namespace vardel
