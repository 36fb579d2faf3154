#include "numerics/indexx.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

#include "run/stop.hpp"

namespace vardel {
namespace {

// Small keys from a fixed 64-bit LCG, so that ties are frequent.
struct Lcg {
  std::uint64_t s;
  int next(int range) {
    s = s * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<int>((s >> 33) % static_cast<std::uint64_t>(range));
  }
};

// The ranking steps written out literally, one position per step, with a
// growable stack and no shortcuts. ix[0] is unused so positions count from 1.
template <class Key>
std::vector<int> naive_rank(const std::vector<Key>& keys) {
  const int n = static_cast<int>(keys.size());
  std::vector<int> ix(n + 1);
  auto key_at = [&](int p) { return keys[ix[p] - 1]; };
  auto exchange_if_less = [&](int p, int q) {
    if (key_at(q) < key_at(p)) std::swap(ix[p], ix[q]);
  };
  for (int i = 1; i <= n; i++) ix[i] = i;
  int l = 1, r = n;
  std::vector<int> stack;
  while (true) {
    if (r - l < 15) {
      for (int j = l + 1; j <= r; j++) {
        int t = ix[j];
        Key a = keys[t - 1];
        int i = j - 1;
        while (i >= l && !(key_at(i) <= a)) {
          ix[i + 1] = ix[i];
          i = i - 1;
        }
        ix[i + 1] = t;
      }
      if (stack.empty()) break;
      r = stack.back();
      stack.pop_back();
      l = stack.back();
      stack.pop_back();
      continue;
    }
    int k = (l + r) / 2;
    std::swap(ix[k], ix[l + 1]);
    exchange_if_less(l, r);
    exchange_if_less(l + 1, r);
    exchange_if_less(l, l + 1);
    int i = l + 1, j = r, t = ix[l + 1];
    Key a = keys[t - 1];
    while (true) {
      i = i + 1;
      while (key_at(i) < a) i = i + 1;
      j = j - 1;
      while (key_at(j) > a) j = j - 1;
      if (j < i) break;
      std::swap(ix[i], ix[j]);
    }
    ix[l + 1] = ix[j];
    ix[j] = t;
    if (r - i + 1 < j - l) {
      stack.push_back(l);
      stack.push_back(j - 1);
      l = i;
    } else {
      stack.push_back(i);
      stack.push_back(r);
      r = j - 1;
    }
  }
  ix.erase(ix.begin());
  return ix;
}

std::vector<int> rank_of(const std::vector<double>& keys) {
  std::vector<int> ix(keys.size());
  indexx(keys, ix);
  return ix;
}

std::vector<int> rank_of(const std::vector<int>& keys) {
  std::vector<int> ix(keys.size());
  indexx_i4b(keys, ix);
  return ix;
}

TEST(Indexx, FewerThanSixteenKeysRankLikeAStableSort) {
  Lcg g{11};
  for (int n = 0; n <= 15; ++n) {
    for (int trial = 0; trial < 20; ++trial) {
      std::vector<int> keys(n);
      for (int& k : keys) k = g.next(4);
      std::vector<double> dkeys(keys.begin(), keys.end());
      std::vector<int> expect(n);
      std::iota(expect.begin(), expect.end(), 1);
      std::stable_sort(expect.begin(), expect.end(),
                       [&](int p, int q) { return keys[p - 1] < keys[q - 1]; });
      EXPECT_EQ(rank_of(keys), expect) << "n=" << n;
      EXPECT_EQ(rank_of(dkeys), expect) << "n=" << n;
    }
  }
}

// Worked by hand from the steps: one partition of 16 equal keys, whose scans
// meet in the middle, then two insertion passes that change nothing.
TEST(Indexx, SixteenEqualKeys) {
  const std::vector<int> expect = {1, 10, 15, 14, 13, 12, 11, 8, 9, 2, 7, 6, 5, 4, 3, 16};
  EXPECT_EQ(rank_of(std::vector<double>(16, 2.5)), expect);
  EXPECT_EQ(rank_of(std::vector<int>(16, -3)), expect);
}

TEST(Indexx, MatchesTheStepsElementForElement) {
  Lcg g{2024};
  for (int trial = 0; trial < 300; ++trial) {
    const int n = 16 + g.next(trial < 250 ? 300 : 5000);
    const int range = 1 + g.next(trial % 3 == 0 ? 3 : 50);  // many ties
    std::vector<int> keys(n);
    for (int& k : keys) k = g.next(range) - range / 2;
    std::vector<double> dkeys(n);
    for (int p = 0; p < n; ++p) dkeys[p] = 0.25 * keys[p];
    const std::vector<int> expect = naive_rank(keys);
    ASSERT_EQ(rank_of(keys), expect) << "trial " << trial;
    ASSERT_EQ(rank_of(dkeys), expect) << "trial " << trial;
    for (int p = 1; p < n; ++p) ASSERT_LE(keys[expect[p - 1] - 1], keys[expect[p] - 1]);
  }
}

TEST(Indexx, LongRunsOfEqualKeysStayFast) {
  // Equal keys stop both scans at once, so this splits evenly each time.
  std::vector<double> keys(1 << 18, 1.0);
  keys[12345] = 0.0;
  const std::vector<int> ix = rank_of(keys);
  EXPECT_EQ(ix[0], 12346);
}

TEST(Indexx, SizeMismatchStopsTheRun) {
  std::vector<double> keys(5, 0.0);
  std::vector<int> ix(4);
  testing::internal::CaptureStdout();
  EXPECT_THROW(indexx(keys, ix), RunStopped);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "nrerror: an assert_eq failed with this tag:\nindexx\n"
            "program terminated by assert_eq2\n");
  std::vector<int> ikeys(3, 0);
  testing::internal::CaptureStdout();
  EXPECT_THROW(indexx_i4b(ikeys, ix), RunStopped);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "nrerror: an assert_eq failed with this tag:\nindexx_i4b\n"
            "program terminated by assert_eq2\n");
}

}  // namespace
}  // namespace vardel
