#include "timing/stopwatch.hpp"

#include <gtest/gtest.h>

namespace vardel {
namespace {

TEST(Stopwatch, ClocksAreConsistentAndFrozenAfterStop) {
  Stopwatch watch;
  watch.start();
  volatile double sink = 0.0;
  for (int i = 0; i < 2000000; ++i) sink = sink + 1e-9 * i;
  watch.stop();
  const ClockReading r = watch.read();
  EXPECT_GE(r.user, 0.0);
  EXPECT_GE(r.sys, 0.0);
  EXPECT_DOUBLE_EQ(r.cpu, r.user + r.sys);
  EXPECT_GE(r.wall, 0.0);
  // A stopped watch keeps its reading.
  const ClockReading again = watch.read();
  EXPECT_EQ(again.wall, r.wall);
  EXPECT_EQ(again.cpu, r.cpu);
}

}  // namespace
}  // namespace vardel
