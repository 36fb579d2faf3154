#include "numerics/parallel_for.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace vardel {
namespace {

// Ranges and costs on both sides of the inline threshold.
struct Range {
  std::ptrdiff_t first, last;
  std::size_t cost;
};
const Range kRanges[] = {{1, 0, 1000000}, {5, 4, 1},      {1, 1, 1000000}, {1, 25, 1},
                         {1, 25, 100000}, {-3, 7, 50000}, {1, 200000, 1},  {0, 999, 1000}};

TEST(ParallelFor, VisitsEveryIndexOnce) {
  for (const Range& r : kRanges) {
    const std::ptrdiff_t n = r.last - r.first + 1 > 0 ? r.last - r.first + 1 : 0;
    std::vector<std::atomic<int>> for_hits(static_cast<std::size_t>(n));
    std::vector<std::atomic<int>> block_hits(static_cast<std::size_t>(n));
    parallel_for(r.first, r.last, r.cost,
                 [&](std::ptrdiff_t i) { ++for_hits[static_cast<std::size_t>(i - r.first)]; });
    parallel_blocks(r.first, r.last, r.cost, [&](std::ptrdiff_t lo, std::ptrdiff_t hi) {
      ASSERT_LE(lo, hi);
      for (std::ptrdiff_t i = lo; i <= hi; ++i) ++block_hits[static_cast<std::size_t>(i - r.first)];
    });
    for (std::ptrdiff_t k = 0; k < n; ++k) {
      EXPECT_EQ(for_hits[static_cast<std::size_t>(k)], 1) << r.first << ".." << r.last << " @" << k;
      EXPECT_EQ(block_hits[static_cast<std::size_t>(k)], 1)
          << r.first << ".." << r.last << " @" << k;
    }
  }
}

TEST(ParallelFor, NestedCallsRunToCompletion) {
  const int outer = 8;
  const int inner = 5000;
  using Body = std::function<void(std::ptrdiff_t)>;
  const std::function<void(const Body&)> outers[] = {
      [&](const Body& b) { parallel_for(0, outer - 1, 1000000, b); },
      [&](const Body& b) { fork_join(outer, b); }};
  for (const auto& run_outer : outers) {
    std::vector<std::atomic<int>> hits(static_cast<std::size_t>(outer * inner));
    run_outer([&](std::ptrdiff_t a) {
      parallel_for(0, inner - 1, 1000000,
                   [&](std::ptrdiff_t b) { ++hits[static_cast<std::size_t>(a * inner + b)]; });
    });
    for (const auto& h : hits) ASSERT_EQ(h, 1);
  }
}

TEST(ParallelFor, RethrowsTheFirstFailureInIndexOrder) {
  for (const std::size_t cost : {std::size_t{1}, std::size_t{1000000}}) {
    try {
      parallel_for(1, 40, cost, [](std::ptrdiff_t i) {
        if (i == 7 || i == 30) throw std::runtime_error(std::to_string(i));
      });
      ADD_FAILURE() << "no exception";
    } catch (const std::runtime_error& e) {
      EXPECT_STREQ(e.what(), "7");
    }
    // The pool is usable again afterwards.
    std::atomic<int> count{0};
    parallel_for(1, 40, cost, [&](std::ptrdiff_t) { ++count; });
    EXPECT_EQ(count, 40);
  }
}

// A tree of fork_joins: `fanout` children per node down to `depth`; leaf ids
// count the leaves in order. Leaves listed in `throwers` throw their id.
struct Tree {
  int depth, fanout;
  std::vector<long> throwers;
  std::vector<std::atomic<int>> hits;
  std::atomic<long> started{0}, ended{0};
  Tree(int d, int f, std::vector<long> t = {}) : depth(d), fanout(f), throwers(std::move(t)) {
    long n = 1;
    for (int i = 0; i < d; ++i) n *= f;
    hits = std::vector<std::atomic<int>>(static_cast<std::size_t>(n));
  }
  void grow(int level, long id) {
    if (level == depth) {
      ++started;
      const bool throws = std::find(throwers.begin(), throwers.end(), id) != throwers.end();
      if (!throws) ++hits[static_cast<std::size_t>(id)];
      ++ended;
      if (throws) throw std::runtime_error(std::to_string(id));
      return;
    }
    fork_join(fanout, [&](std::ptrdiff_t k) { grow(level + 1, id * fanout + k); });
  }
};

TEST(ForkJoin, RecursiveTreesRunEveryLeafOnce) {
  for (const auto& [depth, fanout] : {std::pair{12, 3}, {1, 5}}) {
    Tree tree(depth, fanout);
    tree.grow(0, 0);
    for (const auto& h : tree.hits) ASSERT_EQ(h, 1) << depth << "x" << fanout;
  }
  // A spine 40 deep, each level with two leaves beside it.
  std::vector<std::atomic<int>> hits(3 * 40);
  std::function<void(int)> spine = [&](int level) {
    fork_join(3, [&](std::ptrdiff_t k) {
      ++hits[static_cast<std::size_t>(3 * level + k)];
      if (k == 0 && level + 1 < 40) spine(level + 1);
    });
  };
  spine(0);
  for (const auto& h : hits) ASSERT_EQ(h, 1);
}

TEST(ForkJoin, DeepFailureReachesTheTopAfterStartedTasksEnd) {
  Tree tree(9, 4, {200000, 7000, 7001});
  try {
    tree.grow(0, 0);
    ADD_FAILURE() << "no exception";
  } catch (const std::runtime_error& e) {
    EXPECT_STREQ(e.what(), "7000");
  }
  EXPECT_EQ(tree.started, tree.ended);
  Tree again(9, 4);
  again.grow(0, 0);
  for (const auto& h : again.hits) ASSERT_EQ(h, 1);
}

TEST(ForkJoin, ManyTinyJobsFromSeveralThreadsAllEnd) {
  std::atomic<long> total{0};
  auto calls = [&] {
    for (int i = 0; i < 20000; ++i) {
      fork_join(2, [&](std::ptrdiff_t k) { total += k + 1; });
      parallel_for(1, 2, 1000000, [&](std::ptrdiff_t k) { total += k; });
    }
  };
  std::thread other(calls);
  calls();
  other.join();
  EXPECT_EQ(total, 2 * 20000 * 6);
}

}  // namespace
}  // namespace vardel
