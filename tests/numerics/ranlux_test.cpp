#include "numerics/ranlux.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace vardel {
namespace {

std::vector<float> draw(Ranlux& g, int n) {
  std::vector<float> v(n);
  g.fill(v);
  return v;
}

std::vector<float> fresh(int level, int seed, int n, int k1 = 0) {
  Ranlux g;
  g.go(level, seed, k1, 0);
  return draw(g, n);
}

// streams.txt holds, for each case, "case LEVEL SEED K1 K2 COUNT" and then
// COUNT numbers as the hex bit pattern of a float plus its value.
TEST(Ranlux, MatchesTheReferenceStreamsBitForBit) {
  std::ifstream in(VARDEL_FIXTURE_DIR "/ranlux/streams.txt");
  ASSERT_TRUE(in) << "missing fixture";
  std::string word;
  int cases = 0;
  while (in >> word) {
    ASSERT_EQ(word, "case");
    int level, seed, k1, k2, count;
    in >> level >> seed >> k1 >> k2 >> count;
    Ranlux g;
    g.go(level, seed, k1, k2);
    const std::vector<float> got = draw(g, count);
    for (int i = 0; i < count; ++i) {
      std::string hex, value;
      in >> hex >> value;
      ASSERT_EQ(std::bit_cast<std::uint32_t>(got[i]), std::stoul(hex, nullptr, 16))
          << "level " << level << " seed " << seed << " number " << i + 1;
    }
    ++cases;
  }
  EXPECT_EQ(cases, 10);
}

TEST(Ranlux, PublishedDefaultStream) {
  // Numbers 1-5 and 101-105 at level 3 from the default seed.
  const std::vector<float> v = fresh(3, 314159265, 105);
  const double expect[] = {0.53981817, 0.76155043, 0.06029940, 0.79600263, 0.30631220,
                           0.43156743, 0.03774416, 0.24897110, 0.00147784, 0.90274453};
  for (int i = 0; i < 10; ++i) EXPECT_NEAR(v[i < 5 ? i : i + 95], expect[i], 6e-9);
}

TEST(Ranlux, EquivalentLevelsAndSeeds) {
  struct Case {
    int level_a, seed_a, level_b, seed_b;
  };
  const Case cases[] = {
      {3, 0, 3, 314159265}, {2, -5, 2, 314159265}, {5, 77, 4, 77},  {-1, 77, 3, 77},
      {23, 77, 4, 77},      {2001, 77, 4, 77},     {24, 77, 0, 77}, {48, 77, 1, 77},
      {223, 77, 3, 77},     {389, 77, 4, 77},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(fresh(c.level_a, c.seed_a, 500), fresh(c.level_b, c.seed_b, 500))
        << c.level_a << "/" << c.seed_a;
  }
  // A direct block length outside the table is a level of its own.
  EXPECT_NE(fresh(100, 77, 500), fresh(4, 77, 500));
  EXPECT_NE(fresh(3, 77, 500), fresh(3, 78, 500));
}

TEST(Ranlux, SharedStateRestartsCleanly) {
  Ranlux& shared = ranlux_state();
  shared.reset();
  std::vector<float> first(300);
  ranlux(first);  // never restarted: default level and seed
  EXPECT_EQ(first, fresh(3, 314159265, 300));

  rluxgo(4, 2345, 0, 0);
  std::vector<float> a(1000), b(1000);
  ranlux(a);
  rluxgo(4, 2345, 0, 0);  // whatever came before is forgotten
  ranlux(b);
  EXPECT_EQ(a, b);
  for (float u : a) {
    EXPECT_GT(u, 0.0f);
    EXPECT_LT(u, 1.0f);
  }
  shared.reset();
}

TEST(Ranlux, NoZeroesAndSmallNumbersArePadded) {
  // Numbers below 2^-12 get low-order bits from the next seed word, so they
  // are never zero and, unlike the rest, not multiples of 2^-24.
  Ranlux g;
  g.go(0, 0, 0, 0);
  const std::vector<float> v = draw(g, 200000);
  int small = 0;
  for (float u : v) {
    ASSERT_GT(u, 0.0f);
    ASSERT_LT(u, 1.0f);
    if (u < 0x1.0p-12f) {
      ++small;
    } else {
      const float units = u * 16777216.0f;
      ASSERT_EQ(units, static_cast<float>(static_cast<int>(units)));
    }
  }
  EXPECT_GT(small, 20);
}

TEST(Ranlux, BreakPointsAndSavedStatesResume) {
  Ranlux g;
  g.go(2, 4321, 0, 0);
  draw(g, 137);
  const RanluxStatus at = g.status();
  const std::array<int, 25> saved = g.save();
  const std::vector<float> rest = draw(g, 400);

  EXPECT_EQ(at.level, 2);
  EXPECT_EQ(at.seed, 4321);
  EXPECT_EQ(at.k1, 137 + 5 * 73);  // delivered plus skipped
  EXPECT_EQ(fresh(2, 4321, 400, at.k1), rest);

  Ranlux h;
  h.restore(saved);
  EXPECT_EQ(draw(h, 400), rest);
}

}  // namespace
}  // namespace vardel
