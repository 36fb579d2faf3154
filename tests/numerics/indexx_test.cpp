#include "numerics/indexx.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

namespace vardel {
namespace {

int small_key(std::uint64_t& s, int range) {  // fixed LCG: small keys, many ties
  s = s * 6364136223846793005ULL + 1442695040888963407ULL;
  return static_cast<int>((s >> 33) % static_cast<std::uint64_t>(range));
}

// The ranking steps written out literally, with a growable stack and no
// shortcuts. ix[0] is unused so that positions count from 1.
template <class Key>
std::vector<int> naive_rank(const std::vector<Key>& keys) {
  const int n = static_cast<int>(keys.size());
  std::vector<int> ix(n + 1), stack;
  auto key_at = [&](int p) { return keys[ix[p] - 1]; };
  auto exchange_if_less = [&](int p, int q) {
    if (key_at(q) < key_at(p)) std::swap(ix[p], ix[q]);
  };
  for (int i = 1; i <= n; i++) ix[i] = i;
  int l = 1, r = n;
  while (true) {
    if (r - l < 15) {
      for (int j = l + 1; j <= r; j++) {
        int t = ix[j], i = j - 1;
        while (i >= l && !(key_at(i) <= keys[t - 1])) {
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
    std::swap(ix[(l + r) / 2], ix[l + 1]);
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
      stack.insert(stack.end(), {l, j - 1});
      l = i;
    } else {
      stack.insert(stack.end(), {i, r});
      r = j - 1;
    }
  }
  return std::vector<int>(ix.begin() + 1, ix.end());
}

// Ranks integer keys with indexx_i4b, and the same keys as doubles with
// indexx; the two must agree.
std::vector<int> rank_both(const std::vector<int>& keys) {
  std::vector<int> ix(keys.size()), dix(keys.size());
  indexx_i4b(keys, ix);
  indexx(std::vector<double>(keys.begin(), keys.end()), dix);
  EXPECT_EQ(ix, dix);
  return ix;
}

TEST(Indexx, FewerThanSixteenKeysRankLikeAStableSort) {
  std::uint64_t s = 11;
  for (int n = 0; n <= 15; ++n) {
    for (int trial = 0; trial < 20; ++trial) {
      std::vector<int> keys(n), expect(n);
      for (int& k : keys) k = small_key(s, 4);
      std::iota(expect.begin(), expect.end(), 1);
      std::stable_sort(expect.begin(), expect.end(),
                       [&](int p, int q) { return keys[p - 1] < keys[q - 1]; });
      EXPECT_EQ(rank_both(keys), expect) << "n=" << n;
    }
  }
}

TEST(Indexx, SixteenOrMoreKeysFollowTheStepsExactly) {
  // Worked by hand: one partition of 16 equal keys, whose scans meet in the
  // middle, then two insertion passes that change nothing.
  EXPECT_EQ(rank_both(std::vector<int>(16, -3)),
            (std::vector<int>{1, 10, 15, 14, 13, 12, 11, 8, 9, 2, 7, 6, 5, 4, 3, 16}));
  std::uint64_t s = 2024;
  for (int trial = 0; trial < 300; ++trial) {
    const int n = 16 + small_key(s, trial < 250 ? 300 : 5000);
    const int range = 1 + small_key(s, trial % 3 == 0 ? 3 : 50);
    std::vector<int> keys(n);
    for (int& k : keys) k = small_key(s, range) - range / 2;
    const std::vector<int> expect = naive_rank(keys);
    ASSERT_EQ(rank_both(keys), expect) << "trial " << trial;
    for (int p = 1; p < n; ++p) ASSERT_LE(keys[expect[p - 1] - 1], keys[expect[p] - 1]);
  }
}

}  // namespace
}  // namespace vardel
