#include "prune/alpha_seq.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <string>
#include <vector>

#include "prune/prune_arrays.hpp"
#include "prune/replay.hpp"
#include "support/harness.hpp"

namespace vardel {
namespace {

using testing_support::WorkFolder;

// One node of a hand-built tree: number, parent (0 for the root), cases, rt.
struct Node {
  int id, parent, n;
  double rt;
};

class AlphaSeq : public ::testing::Test {
 protected:
  void SetUp() override {
    testing_support::fresh_run_state();
    prune_arrays().reset();
  }
  void TearDown() override {
    tree_store().reset();
    prune_arrays().reset();
  }
  // Adds the nodes in the order given; as in a grown tree, a later child
  // comes first in its parent's list. The tree is dumped as the largest tree.
  void build(int k, const std::vector<Node>& nodes) {
    init().nclass = k;
    init().outfile = fixed_text("out.txt", kFileNameLen);
    TreeStore& store = tree_store();
    store.start();
    store.scratch().open();
    for (const Node& v : nodes) {
      const std::vector<double> y{double(v.n), 1.0, v.rt};
      store.add_node(v.id, v.parent, y);
    }
    store.dump_tree(1);
  }
  static std::set<int> node_set() {
    std::set<int> ids;
    std::vector<int> todo{1};
    while (!todo.empty()) {
      const int id = todo.back();
      todo.pop_back();
      auto r = tree_store().retrieve(id);
      if (!r.found) continue;
      ids.insert(id);
      todo.insert(todo.end(), r.children.begin(), r.children.end());
    }
    return ids;
  }
  template <class T>
  static std::vector<T> head(const std::vector<T>& v, int n) {
    return {v.begin(), v.begin() + n};
  }
  WorkFolder folder;
};

// Three levels, two classes, strengths distinct and exact in binary:
// 5 (1.25), 7 (1.5), 3 (2), then the root (2.5); node 2 is never pruned alone.
const std::vector<Node> kDistinct = {{1, 0, 40, 20.0}, {2, 1, 20, 8.0}, {3, 1, 20, 10.0},
                                     {4, 2, 10, 3.0},  {5, 2, 10, 2.0}, {10, 5, 5, 0.5},
                                     {11, 5, 5, 0.25}, {6, 3, 10, 4.0}, {7, 3, 10, 4.0},
                                     {14, 7, 5, 1.0},  {15, 7, 5, 1.5}};

// A dump and restore reverses every child list: the node lists come out in a
// different order, and the walk of fill_cost then passes through later
// siblings, but distinct strengths must give the same sequence.
TEST_F(AlphaSeq, RestoredTreeGivesTheSameSequence) {
  build(2, kDistinct);
  refill_arrays();
  const std::vector<int> grown_order = prune_arrays().nid;
  alpha_seq(0);
  const PruneArrays first = prune_arrays();

  replay_subtree(0);
  refill_arrays();
  EXPECT_NE(prune_arrays().nid, grown_order);
  fill_cost();
  EXPECT_EQ(prune_arrays().snodes[1], 3);  // node 2, listed second: 4, 10, 11 only

  alpha_seq(0);
  const PruneArrays& again = prune_arrays();
  EXPECT_EQ(again.pseq0, first.pseq0);
  EXPECT_EQ(again.talpha0, first.talpha0);
  EXPECT_EQ(again.pnodes0, first.pnodes0);
  EXPECT_EQ(again.nomit, first.nomit);
  EXPECT_EQ(again.nsubtrees, first.nsubtrees);
}

TEST_F(AlphaSeq, DistinctStrengthsAndTheirReplay) {
  build(2, kDistinct);
  alpha_seq(0);
  const PruneArrays& pa = prune_arrays();
  EXPECT_EQ(pa.nsteps, 4);  // node 2 goes with the root
  EXPECT_EQ(head(pa.pseq0, 4), (std::vector<int>{5, 7, 3, 1}));
  EXPECT_EQ(pa.talpha0, (std::vector<double>{1.25, 1.5, 2.0, 2.5, 0.0}));
  EXPECT_EQ(head(pa.pnodes0, 4), (std::vector<int>{5, 4, 3, 1}));
  EXPECT_EQ(head(pa.nomit, 4), (std::vector<int>(4, 0)));
  EXPECT_EQ(pa.palpha,
            (std::vector<double>{std::sqrt(1.25 * 1.5), std::sqrt(1.5 * 2.0), std::sqrt(2.0 * 2.5),
                                 std::numeric_limits<double>::max()}));
  EXPECT_EQ(init().nodesmax, 11);
  EXPECT_EQ(node_set(), (std::set<int>{1}));  // the loop ends at the root alone

  const std::set<int> all = {1, 2, 3, 4, 5, 6, 7, 10, 11, 14, 15};
  const std::vector<std::set<int>> expected = {
      all, {1, 2, 3, 4, 5, 6, 7, 14, 15}, {1, 2, 3, 4, 5, 6, 7}, {1, 2, 3, 4, 5}, {1},
  };
  for (int s = 0; s <= 4; ++s) {
    replay_subtree(s);
    EXPECT_EQ(node_set(), expected[s]) << "subtree " << s;
    refill_arrays();
    const int with_cases =
        int(std::count(prune_arrays().nstattrue.begin(), prune_arrays().nstattrue.end(), 1));
    EXPECT_EQ(with_cases, s == 0 ? 6 : pa.pnodes0[s - 1]) << "subtree " << s;
  }
}

// Nodes 2 and 3 over leaves of rt 0, so their strengths are a and b.
std::vector<Node> two_splits(double a, double b) {
  return {{1, 0, 40, 16.0}, {2, 1, 20, a},   {3, 1, 20, b},  {4, 2, 10, 0.0},
          {5, 2, 10, 0.0},  {6, 3, 10, 0.0}, {7, 3, 10, 0.0}};
}

// Ties go to the smaller node number and merge into one subtree that keeps
// the later strength. The tolerance is the absolute double epsilon: near
// 0.25 that is four units in the last place.
TEST_F(AlphaSeq, TiesWithinEpsilonMergeIntoOneSubtree) {
  const double eps = std::numeric_limits<double>::epsilon();
  struct Case {
    double a, b;
    std::vector<int> pseq;
    int nsubtrees, nomit;
    double first_alpha;
  } cases[] = {
      {2.0, 2.0, {2, 3, 1}, 2, 1, 2.0},
      {0.25 + eps / 2.0, 0.25, {3, 2, 1}, 2, 1, 0.25 + eps / 2.0},
      {0.25 + 1.25 * eps, 0.25, {3, 2, 1}, 3, 0, 0.25},
  };
  for (const Case& c : cases) {
    SetUp();
    build(2, two_splits(c.a, c.b));
    alpha_seq(0);
    const PruneArrays& pa = prune_arrays();
    EXPECT_EQ(pa.pseq0, c.pseq) << c.a;
    EXPECT_EQ(pa.nsubtrees, c.nsubtrees) << c.a;
    EXPECT_EQ(pa.nomit[0], c.nomit) << c.a;
    EXPECT_EQ(pa.talpha0[0], c.first_alpha) << c.a;
  }
}

// The table, byte for byte, and the merged subtree rebuilt.
TEST_F(AlphaSeq, PrintedTableAndMergedReplay) {
  build(2, two_splits(2.0, 2.0));
  alpha_seq(0);
  EXPECT_EQ(folder.read("out.txt"),
            "  Subtree pruning sequence:\n"
            "  Subtree   True alpha   # Terminal Nodes\n"
            " (largest)    0.0000             4\n"
            "      1       2.0000             2\n"
            "      2      12.0000             1\n");
  EXPECT_EQ(prune_arrays().palpha,
            (std::vector<double>{std::sqrt(24.0), std::numeric_limits<double>::max()}));
  replay_subtree(1);
  EXPECT_EQ(node_set(), (std::set<int>{1, 2, 3}));
}

// Node 2 does not lower the cost (4 > 3 below it): its strength -1 is kept
// as 0, so it goes first although the root's strength is small.
TEST_F(AlphaSeq, NegativeStrengthIsZeroAndPrunedFirst) {
  build(2, {{1, 0, 30, 10.0}, {2, 1, 20, 3.0}, {3, 1, 10, 2.0}, {4, 2, 10, 2.0}, {5, 2, 10, 2.0}});
  refill_arrays();
  fill_cost();
  const PruneArrays& pa = prune_arrays();
  EXPECT_EQ(pa.nid, (std::vector<int>{1, 3, 2, 5, 4}));
  EXPECT_EQ(pa.nalpha, (std::vector<double>{2.0, 0.0, 0.0, 0.0, 0.0}));
  EXPECT_EQ(pa.scost[0], 6.0);
  EXPECT_EQ(pa.snodes[0], 3);
  alpha_seq(0);
  EXPECT_EQ(head(pa.pseq0, 2), (std::vector<int>{2, 1}));
  EXPECT_EQ(head(pa.talpha0, 2), (std::vector<double>{0.0, 5.0}));
}

// Empty children (3, 5) count in the sums of their parents but not as
// terminal nodes. After the first step only one terminal node has cases
// while two splits remain: each such step adds an entry of its own, so there
// are more entries than steps, and replaying past the recorded steps must
// leave the root alone.
TEST_F(AlphaSeq, EarlySingleLeafSubtreeAddsEntries) {
  build(2, {{1, 0, 10, 20.0},
            {2, 1, 10, 8.0},
            {3, 1, 0, 0.0},
            {4, 2, 10, 4.0},
            {5, 2, 0, 0.0},
            {8, 4, 6, 1.0},
            {9, 4, 4, 1.0}});
  alpha_seq(0);
  const PruneArrays& pa = prune_arrays();
  EXPECT_EQ(pa.nonempty_terminal, 2);
  EXPECT_EQ(init().nodesmax, 5);
  EXPECT_EQ(pa.pseq0, (std::vector<int>{4, 2, 1}));
  EXPECT_EQ(pa.nsubtrees, 4);
  EXPECT_EQ(head(pa.talpha0, 4), (std::vector<double>{2.0, 4.0, 4.0, 12.0}));
  EXPECT_EQ(head(pa.pnodes0, 4), (std::vector<int>(4, 1)));
  replay_subtree(4);
  EXPECT_EQ(node_set(), (std::set<int>{1}));
}

TEST_F(AlphaSeq, RootAlonePrintsHeadOnly) {
  build(2, {{1, 0, 10, 3.0}});
  prune_arrays().nsubtrees = 7;
  alpha_seq(0);
  EXPECT_EQ(prune_arrays().nsubtrees, 7);
  EXPECT_EQ(prune_arrays().nonempty_terminal, 1);
  EXPECT_EQ(init().nodesmax, 1);
  EXPECT_EQ(folder.read("out.txt"),
            "  Subtree pruning sequence:\n"
            "  Subtree   True alpha   # Terminal Nodes\n"
            " (largest)    0.0000             1\n");
}

}  // namespace
}  // namespace vardel
