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

// Arrays that trouble quicksorts and heaps: random, few distinct values,
// already sorted, reversed, all equal, at sizes around the edges.
std::vector<std::vector<double>> awkward_inputs() {
  std::uint64_t s = 99;
  auto uniform = [&] {
    s = s * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<double>(s >> 11) * 0x1.0p-53;
  };
  std::vector<std::vector<double>> out;
  for (int n : {1, 2, 3, 7, 16, 17, 100, 1001, 40000}) {
    std::vector<double> random(n), few(n), up(n), down(n);
    for (int i = 0; i < n; ++i) {
      random[i] = uniform() - 0.5;
      few[i] = static_cast<int>(uniform() * 4);
      up[i] = i;
      down[i] = n - i;
    }
    out.insert(out.end(), {random, few, up, down, std::vector<double>(n, 3.0)});
  }
  return out;
}

TEST(Sort, HeapSortAndDsortAgreeWithAReferenceSort) {
  for (const auto& input : awkward_inputs()) {
    std::vector<double> expect = input, a = input, b = input, c = input, d = input;
    std::sort(expect.begin(), expect.end());
    sort(a);
    dsort(b);
    dsort(c, {}, 1);
    dsort(d, {}, 0);
    EXPECT_EQ(a, expect);
    EXPECT_EQ(b, expect);
    EXPECT_EQ(c, expect);
    EXPECT_TRUE(std::equal(d.begin(), d.end(), expect.rbegin()));
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
    ASSERT_TRUE(std::equal(slave.begin(), slave.end(), ix.begin()));
    ASSERT_TRUE(std::is_sorted(arr.begin(), arr.end()));

    // ssort moves each (key, companion) pair as a unit.
    std::vector<float> x(input.begin(), input.end()), y(n);
    std::iota(y.begin(), y.end(), 0.0f);
    ssort(x, y);
    ASSERT_TRUE(std::is_sorted(x.begin(), x.end()));
    for (std::size_t k = 0; k < n; ++k)
      ASSERT_EQ(x[k], static_cast<float>(input[static_cast<std::size_t>(y[k])]));
  }
}

TEST(Sort, DsortAndSsortReportBadSizesAndGoOn) {
  std::vector<double> d3 = {3, 1, 2}, d2 = {5, 6};
  std::vector<float> f3 = {3, 1, 2}, f2 = {5, 6};
  const std::pair<std::function<void()>, std::string> cases[] = {
      {[] { dsort({}); }, "error in dsort: number of values to be sorted not positive\n"},
      {[] { ssort({}, {}, 0); }, "error in ssort: number of values to be sorted not positive\n"},
      {[&] { dsort(d3, d2); }, "error in dsort: lengths of arrays do not match\n"},
      {[&] { ssort(f3, f2); }, "error in ssort: lengths of arrays do not match\n"},
  };
  for (const auto& [call, message] : cases) {
    testing::internal::CaptureStdout();
    EXPECT_NO_THROW(call());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), message);
  }
  EXPECT_EQ(d3, (std::vector<double>{3, 1, 2}));  // left alone
  EXPECT_EQ(f3, (std::vector<float>{3, 1, 2}));
}

TEST(Sort, SizeMismatchesStopTheRunThroughAssertEq2) {
  std::vector<double> d3(3), d2(2);
  std::vector<int> i3(3), i2(2);
  const std::pair<std::function<void()>, std::string> cases[] = {
      {[&] { sort2(d3, d2); }, "sort2"},
      {[&] { indexx(d3, i2); }, "indexx"},
      {[&] { indexx_i4b(i2, i3); }, "indexx_i4b"},
  };
  for (const auto& [call, tag] : cases) {
    testing::internal::CaptureStdout();
    EXPECT_THROW(call(), RunStopped);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "nrerror: an assert_eq failed with this tag:\n" + tag +
                  "\nprogram terminated by assert_eq2\n");
  }
  testing::internal::CaptureStdout();
  EXPECT_THROW(nrerror("indexx: NSTACK too small"), RunStopped);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "nrerror: indexx: NSTACK too small\nprogram terminated by nrerror\n");
}

}  // namespace
}  // namespace vardel
