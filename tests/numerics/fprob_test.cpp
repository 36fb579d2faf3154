#include "numerics/fprob.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "numerics/distrib_reference.hpp"

namespace vardel {
namespace {

using testing_distrib::agrees;
using testing_distrib::reference_rows;

TEST(Fprob, BadArgumentsSetStatusAndLeaveTailsUntouched) {
  struct Case {
    int ndf, ddf;
    double f;
    int status;
  };
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const Case cases[] = {
      {0, 5, 1.0, 1},  {5, 0, 1.0, 1},  {-1, 5, 1.0, 1},    {3, -2, 1.0, 1},
      {0, 0, -1.0, 1}, {3, 5, -1.0, 2}, {3, 5, -1e-300, 2}, {3, 5, nan, 2},
  };
  for (const Case& c : cases) {
    double p = 0.25;
    double q = 0.75;
    int status = -1;
    fprob(c.ndf, c.ddf, c.f, p, q, status);
    EXPECT_EQ(status, c.status) << c.ndf << " " << c.ddf << " " << c.f;
    EXPECT_EQ(p, 0.25);
    EXPECT_EQ(q, 0.75);
  }
}

TEST(Fprob, ZeroIsCertainToBeExceeded) {
  for (int ndf : {1, 2, 7, 100000}) {
    for (int ddf : {1, 3, 1000}) {
      double p = -1.0;
      double q = -1.0;
      int status = -1;
      fprob(ndf, ddf, 0.0, p, q, status);
      EXPECT_EQ(status, 0);
      EXPECT_EQ(p, 1.0) << ndf << " " << ddf;
      EXPECT_EQ(q, 0.0);
    }
  }
}

// Closed forms for 1 or 2 degrees of freedom on either side and the general
// case against high-precision values, from f = 1e-10 to 1e10. With 1000 or
// more degrees of freedom the tails are more sensitive to the rounding of
// x = ddf / (ddf + ndf*f) and y = 1 - x, so they get a wider bound.
TEST(Fprob, MatchesReferenceValues) {
  const auto rows = reference_rows("fprob");
  ASSERT_GT(rows.size(), 300u);
  for (const auto& r : rows) {
    const int ndf = static_cast<int>(r.v[0]);
    const int ddf = static_cast<int>(r.v[1]);
    const double f = r.v[2];
    const double tol = (ndf >= 1000 || ddf >= 1000) ? 5e-13 : 1e-13;
    double p;
    double q;
    int status;
    fprob(ndf, ddf, f, p, q, status);
    ASSERT_EQ(status, 0);
    EXPECT_PRED3(agrees, p, r.v[3], tol) << "p of F(" << ndf << "," << ddf << ") at " << f;
    EXPECT_PRED3(agrees, q, r.v[4], tol) << "q of F(" << ndf << "," << ddf << ") at " << f;
    EXPECT_LE(std::fabs((p + q) - 1.0), 2.3e-16) << ndf << " " << ddf << " " << f;
  }
}

// Critical values as printed in the usual tables (7 significant digits).
TEST(Fprob, PrintedCriticalValues) {
  struct Case {
    int ndf, ddf;
    double f, alpha;
  };
  const Case cases[] = {
      {1, 1, 161.4476, .05},   {1, 10, 4.964603, .05}, {3, 7, 4.346831, .05},
      {4, 30, 2.689628, .05},  {5, 10, 3.325835, .05}, {1, 5, 16.25818, .01},
      {10, 20, 3.368186, .01},
  };
  for (const Case& c : cases) {
    double p;
    double q;
    int status;
    fprob(c.ndf, c.ddf, c.f, p, q, status);
    EXPECT_NEAR(p, c.alpha, 2e-6 * c.alpha) << c.ndf << " " << c.ddf;
  }
}

}  // namespace
}  // namespace vardel
