#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "numerics/dsort.hpp"
#include "numerics/indexx.hpp"
#include "numerics/nrutil.hpp"
#include "numerics/sort.hpp"
#include "run/stop.hpp"

namespace vardel {
namespace {

struct Lcg {
  std::uint64_t s;
  double next() {
    s = s * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<double>(s >> 11) * 0x1.0p-53;
  }
};

// Arrays that trouble quicksorts and heaps: random, few distinct values,
// already sorted, reversed, all equal, and the sizes around the edges.
std::vector<std::vector<double>> awkward_inputs() {
  Lcg g{99};
  std::vector<std::vector<double>> out;
  for (int n : {1, 2, 3, 7, 16, 17, 100, 1001, 40000}) {
    std::vector<double> random(n), few(n), up(n), down(n);
    for (int i = 0; i < n; ++i) {
      random[i] = g.next() - 0.5;
      few[i] = static_cast<int>(g.next() * 4);
      up[i] = i;
      down[i] = n - i;
    }
    out.insert(out.end(), {random, few, up, down, std::vector<double>(n, 3.0)});
  }
  return out;
}

TEST(Sort, HeapSortAndDsortAgreeWithAReferenceSort) {
  for (const auto& input : awkward_inputs()) {
    std::vector<double> expect = input;
    std::sort(expect.begin(), expect.end());
    std::vector<double> a = input, b = input, c = input, d = input;
    sort(a);
    dsort(b);
    dsort(c, {}, 1);
    dsort(d, {}, 0);
    EXPECT_EQ(a, expect);
    EXPECT_EQ(b, expect);
    EXPECT_EQ(c, expect);
    std::reverse(expect.begin(), expect.end());
    EXPECT_EQ(d, expect);
  }
}

TEST(Sort, CompanionArraysFollowTheirKeys) {
  for (const auto& input : awkward_inputs()) {
    const std::size_t n = input.size();
    // sort2 puts the slave in exactly the order indexx gives, ties included.
    std::vector<int> ix(n);
    indexx(input, ix);
    std::vector<double> arr = input, slave(n);
    std::iota(slave.begin(), slave.end(), 1.0);
    sort2(arr, slave);
    for (std::size_t k = 0; k < n; ++k) ASSERT_EQ(slave[k], ix[k]);
    ASSERT_TRUE(std::is_sorted(arr.begin(), arr.end()));

    // ssort moves each (key, companion) pair as a unit.
    for (bool descending : {false, true}) {
      std::vector<float> x(n), y(n);
      std::vector<std::pair<float, float>> pairs(n);
      for (std::size_t k = 0; k < n; ++k) {
        x[k] = static_cast<float>(input[k]);
        y[k] = static_cast<float>(k);
        pairs[k] = {x[k], y[k]};
      }
      ssort(x, y, descending ? std::optional<int>(0) : std::nullopt);
      if (descending) {
        ASSERT_TRUE(std::is_sorted(x.rbegin(), x.rend()));
      } else {
        ASSERT_TRUE(std::is_sorted(x.begin(), x.end()));
      }
      std::vector<std::pair<float, float>> after(n);
      for (std::size_t k = 0; k < n; ++k) after[k] = {x[k], y[k]};
      std::sort(pairs.begin(), pairs.end());
      std::sort(after.begin(), after.end());
      ASSERT_EQ(after, pairs);
    }
  }
}

TEST(Sort, DsortAndSsortReportBadSizesAndGoOn) {
  struct Case {
    std::function<void()> call;
    std::string message;
  };
  std::vector<double> d3 = {3, 1, 2}, d2 = {5, 6};
  std::vector<float> f3 = {3, 1, 2}, f2 = {5, 6};
  const Case cases[] = {
      {[] { dsort({}); }, "error in dsort: number of values to be sorted not positive\n"},
      {[] { ssort({}, {}, 0); }, "error in ssort: number of values to be sorted not positive\n"},
      {[&] { dsort(d3, d2); }, "error in dsort: lengths of arrays do not match\n"},
      {[&] { ssort(f3, f2); }, "error in ssort: lengths of arrays do not match\n"},
  };
  for (const Case& c : cases) {
    testing::internal::CaptureStdout();
    EXPECT_NO_THROW(c.call());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), c.message);
  }
  EXPECT_EQ(d3, (std::vector<double>{3, 1, 2}));  // left alone
  EXPECT_EQ(f3, (std::vector<float>{3, 1, 2}));
}

TEST(Sort, FatalChecksWriteTheirLinesAndStop) {
  std::vector<double> a(3), b(2);
  testing::internal::CaptureStdout();
  EXPECT_THROW(sort2(a, b), RunStopped);
  EXPECT_EQ(
      testing::internal::GetCapturedStdout(),
      "nrerror: an assert_eq failed with this tag:\nsort2\nprogram terminated by assert_eq2\n");
  testing::internal::CaptureStdout();
  EXPECT_THROW(nrerror("indexx: NSTACK too small"), RunStopped);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "nrerror: indexx: NSTACK too small\nprogram terminated by nrerror\n");
  EXPECT_EQ(assert_eq2(4, 4, "x"), 4u);
}

}  // namespace
}  // namespace vardel
