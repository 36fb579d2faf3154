// Folds by blocks: the reference sequences, and the block balance they rest on.
#include "prune/stratify.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "numerics/ranlux.hpp"

namespace vardel {
namespace {

struct FoldCase {
  int v = 0, seed = 0, n = 0;
  std::vector<int> mcv;
};

std::vector<FoldCase> reference_cases() {
  std::ifstream in(std::string(VARDEL_FIXTURE_DIR) + "/cvfolds/folds.txt");
  std::vector<FoldCase> cases;
  std::string word;
  while (in >> word) {
    EXPECT_EQ(word, "case");
    FoldCase c;
    in >> c.v >> c.seed >> c.n;
    c.mcv.resize(static_cast<std::size_t>(c.n));
    for (int& f : c.mcv) in >> f;
    cases.push_back(c);
  }
  return cases;
}

std::vector<int> run_stratify(int v, int seed, int n) {
  std::vector<int> mcv(static_cast<std::size_t>(n), 0);
  stratify(v, seed, mcv);
  return mcv;
}

TEST(Stratify, MatchesReferenceAndBalancesEachBlock) {
  const auto cases = reference_cases();
  ASSERT_EQ(cases.size(), 5u);
  for (const auto& c : cases) {
    SCOPED_TRACE("v " + std::to_string(c.v) + " seed " + std::to_string(c.seed));
    const auto mcv = run_stratify(c.v, c.seed, c.n);
    EXPECT_EQ(mcv, c.mcv);

    // Every block of v consecutive cases holds each fold once; the partial
    // last block holds distinct folds.
    for (int first = 0; first < c.n; first += c.v) {
      const int last = std::min(first + c.v, c.n);
      std::set<int> seen(mcv.begin() + first, mcv.begin() + last);
      EXPECT_EQ(static_cast<int>(seen.size()), last - first);
      EXPECT_GE(*seen.begin(), 1);
      EXPECT_LE(*seen.rbegin(), c.v);
    }
    // Fold sizes differ by at most one.
    std::vector<int> size(static_cast<std::size_t>(c.v) + 1, 0);
    for (int f : mcv) ++size[static_cast<std::size_t>(f)];
    const auto [lo, hi] = std::minmax_element(size.begin() + 1, size.end());
    EXPECT_LE(*hi - *lo, 1);
  }
}

TEST(Stratify, SeedChangesTheFoldsButEarlierDrawsDoNot) {
  const auto a = run_stratify(10, 2345, 57);
  EXPECT_NE(a, run_stratify(10, 2346, 57));
  // The generator is restarted, so numbers drawn before are of no account.
  std::vector<float> junk(37);
  ranlux(junk);
  EXPECT_EQ(a, run_stratify(10, 2345, 57));
}

TEST(Stratify, MoreFoldsThanCasesLeavesSomeFoldsEmpty) {
  // No full block: the five cases take the first five labels of one
  // permutation of 1..7, so two folds stay empty.
  const auto mcv = run_stratify(7, 2345, 5);
  const std::set<int> seen(mcv.begin(), mcv.end());
  EXPECT_EQ(seen.size(), 5u);
  EXPECT_EQ(mcv, (std::vector<int>{5, 6, 1, 2, 3}));
}

TEST(Stratify, ClassesInConsecutiveRunsSpreadEvenly) {
  // 30 cases, classes 1, 2, 3 in runs of 10; five folds get two of each.
  const auto mcv = run_stratify(5, 17, 30);
  int count[6][4] = {};
  for (int i = 0; i < 30; ++i) ++count[mcv[static_cast<std::size_t>(i)]][i / 10 + 1];
  for (int f = 1; f <= 5; ++f)
    for (int c = 1; c <= 3; ++c) EXPECT_EQ(count[f][c], 2) << "fold " << f << " class " << c;
}

}  // namespace
}  // namespace vardel
