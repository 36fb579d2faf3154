// Folds by blocks: the reference sequences, and the block balance they rest on.
#include "prune/stratify.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "numerics/ranlux.hpp"

namespace vardel {
namespace {

std::vector<int> run_stratify(int v, int seed, int n) {
  std::vector<int> mcv(static_cast<std::size_t>(n), 0);
  stratify(v, seed, mcv);
  return mcv;
}

// Cases of folds.txt: (v, seed, n) = (10, 2345, 57), (10, 2346, 57), (7, 2345, 5),
// (3, 99, 30), (1, 2345, 4). The partial last blocks and v > n are among them.
TEST(Stratify, MatchesReferenceAndBalancesEachBlock) {
  std::ifstream in(std::string(VARDEL_FIXTURE_DIR) + "/cvfolds/folds.txt");
  std::string word;
  int cases = 0;
  for (int v, seed, n; in >> word >> v >> seed >> n; ++cases) {
    SCOPED_TRACE("v " + std::to_string(v) + " seed " + std::to_string(seed));
    std::vector<int> expected(static_cast<std::size_t>(n));
    for (int& f : expected) in >> f;
    const auto mcv = run_stratify(v, seed, n);
    EXPECT_EQ(mcv, expected);

    // Each block of v consecutive cases holds each fold once at most (a full
    // block exactly once), so fold sizes differ by at most one.
    for (int first = 0; first < n; first += v) {
      const int last = std::min(first + v, n);
      const std::set<int> seen(mcv.begin() + first, mcv.begin() + last);
      EXPECT_EQ(static_cast<int>(seen.size()), last - first);
      EXPECT_TRUE(*seen.begin() >= 1 && *seen.rbegin() <= v);
    }
  }
  EXPECT_EQ(cases, 5);
}

TEST(Stratify, SeedChangesTheFoldsButEarlierDrawsDoNot) {
  const auto a = run_stratify(10, 2345, 57);
  EXPECT_NE(a, run_stratify(10, 2346, 57));
  std::vector<float> junk(37);
  ranlux(junk);
  EXPECT_EQ(a, run_stratify(10, 2345, 57));
}

}  // namespace
}  // namespace vardel
