#include "numerics/chi_squared.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "numerics/distrib_reference.hpp"

namespace vardel {
namespace {

using testing_distrib::reference_rows;
using testing_distrib::rel_err;

TEST(ChiSquared, NoMassAtOrBelowZero) {
  for (int df : {1, 2, 10, 5000}) {
    EXPECT_EQ(chi_squared(df, 0.0), 0.0) << df;
    EXPECT_EQ(chi_squared(df, -3.0), 0.0) << df;
  }
  // No degrees of freedom, or a shape or x not above 0: 0, without a message.
  testing::internal::CaptureStdout();
  EXPECT_EQ(chi_squared(0, 4.0), 0.0);
  EXPECT_EQ(gammad(1.0, -0.5), 0.0);
  EXPECT_EQ(gammad(-1.0, 2.0), 0.0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

// Lower tails against high-precision values (df = 2 is 1 - exp(-x/2)).
// A tail whose log falls below -88 is taken as 0 (lower) or 1 (upper). The
// series and the fraction start from p*ln(x) - x - ln Gamma(p), which loses
// digits to cancellation as the shape grows; beyond 2000 degrees of freedom
// the normal approximation takes over, good to a few units in 1e-6.
TEST(ChiSquared, MatchesReferenceValues) {
  const double cutoff = std::exp(-88.0);
  const auto rows = reference_rows("chisq");
  ASSERT_GT(rows.size(), 90u);
  for (const auto& r : rows) {
    const int df = static_cast<int>(r.v[0]);
    const double chisq = r.v[1];
    const double want = r.v[2];
    const double got = chi_squared(df, chisq);
    const std::string where = std::to_string(df) + " df at " + std::to_string(chisq);
    if (df > 2000) {
      EXPECT_NEAR(got, want, 5e-6) << where;
    } else if (want < cutoff) {
      EXPECT_EQ(got, 0.0) << where;
    } else if (1.0 - want < cutoff) {
      EXPECT_EQ(got, 1.0) << where;
    } else {
      const double tol = df > 100 ? 1e-12 : 1e-13;
      EXPECT_LE(rel_err(got, want), tol) << where;
      EXPECT_LE(rel_err(1.0 - got, 1.0 - want), tol) << "upper tail, " << where;
    }
  }
}

// Upper-tail critical values as printed in the usual tables.
TEST(ChiSquared, PrintedCriticalValues) {
  struct Case {
    int df;
    double chisq, alpha;
  };
  const Case cases[] = {{1, 3.841459, .05},  {2, 5.991465, .05},   {10, 18.307038, .05},
                        {5, 15.086272, .01}, {30, 43.772972, .05}, {100, 135.806723, .01}};
  for (const Case& c : cases) {
    EXPECT_NEAR(1.0 - chi_squared(c.df, c.chisq), c.alpha, 2e-6 * c.alpha) << c.df;
  }
}

TEST(Lngamma, KnownValues) {
  for (const auto& r : reference_rows("lngamma")) {
    // Absolute near the zeros at 1 and 2, relative elsewhere.
    EXPECT_NEAR(lngamma(r.v[0]), r.v[1], 4e-15 * std::fmax(1.0, std::fabs(r.v[1]))) << r.v[0];
  }
}

TEST(Lngamma, ComplainsAboutZeroAndNegativeArguments) {
  for (double z : {0.0, -1.0, -2.5}) {
    testing::internal::CaptureStdout();
    lngamma(z);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error: zero or -ve argument for lngamma\n")
        << z;
  }
}

// AS 66 is good to about 1e-11 relative in either tail, and stops at fixed
// points: the lower tail is 1 beyond 7, the upper tail 0 beyond 18.66.
TEST(Alnorm, BothTails) {
  for (const auto& r : reference_rows("alnorm")) {
    const double z = r.v[0];
    EXPECT_LE(rel_err(alnorm(z, true), r.v[1]), 1e-10) << z;
    EXPECT_LE(rel_err(alnorm(z, false), r.v[2]), 1e-10) << z;
  }
  EXPECT_EQ(alnorm(7.1, false), 1.0);
  EXPECT_EQ(alnorm(-7.1, true), 1.0);
  EXPECT_EQ(alnorm(18.7, true), 0.0);
  EXPECT_EQ(alnorm(-18.7, false), 0.0);
  EXPECT_GT(alnorm(18.6, true), 0.0);
}

}  // namespace
}  // namespace vardel
