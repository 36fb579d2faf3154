#include "tree/grow_tree.hpp"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "run/init.hpp"
#include "split/guards.hpp"
#include "tree/tree_store.hpp"

namespace vardel {
namespace {

// A run with numerical predictors only and the default options.
class GrowTree : public ::testing::Test {
 protected:
  void TearDown() override {
    tree_store().reset();
    init().reset();
  }
  // columns: one vector of values per predictor; classes: 1..k per case.
  void setup(int k, const std::vector<std::vector<double>>& columns,
             const std::vector<int>& classes) {
    Init& in = init();
    in.reset();
    tree_store().reset();
    const int n = static_cast<int>(classes.size());
    const int p = static_cast<int>(columns.size());
    in.nobs = n;
    in.nvar = p;
    in.nclass = k;
    in.ncat = 0;
    in.vtype.assign(p, 'n');
    in.xdata.assign(n, p, 0.0);
    in.misind.assign(n, p, 'n');
    in.cdata.assign(n, 0);
    in.noc.assign(k, 0);
    for (int i = 1; i <= n; ++i) {
      for (int j = 1; j <= p; ++j) in.xdata(i, j) = columns[j - 1][i - 1];
      in.cdata(i) = classes[i - 1];
      ++in.noc(in.cdata(i));
    }
    in.prob.assign(k, 0.0);
    in.cost.assign(k, k, 0.0);
    in.misslearn = 'n';
    set_default_options(in);
    in.splitsel = 1;  // discriminant split points also for two classes
    in.impprune = 5;
    in.maxnodeid = maxnodeid_for(k);
    compute_record_positions(in);
    in.termnode.assign(n, 1);
    tree_store().start();
  }
  void grow() {
    Init& in = init();
    grow_tree(in.xdata, in.cdata, in.misind, in.prob, in.termnode);
  }
  std::vector<double> record(int id) {
    auto r = tree_store().retrieve(id);
    EXPECT_TRUE(r.found) << id;
    return {r.y.span().begin(), r.y.span().end()};
  }
  std::vector<int> children(int id) {
    auto r = tree_store().retrieve(id);
    return {r.children.begin(), r.children.end()};
  }
};

TEST_F(GrowTree, PerfectSeparatorSplitsAtMidpointsIntoPureChildren) {
  // Variable 2 is constant within each class: zero within-class variance, so
  // it wins at once. Its Box-Cox power is 1 with no search (x - 1), the lines
  // of equal-prior classes cross halfway between class means, and the points
  // come back as 15 and 25.
  const std::vector<double> noise{3, 1, 2, 2, 3, 1, 1, 3, 2};
  const std::vector<double> exact{10, 10, 10, 20, 20, 20, 30, 30, 30};
  setup(3, {noise, exact}, {1, 1, 1, 2, 2, 2, 3, 3, 3});
  grow();
  const Init& in = init();
  const std::vector<double> root = record(1);
  EXPECT_EQ(root[in.pos.var_pos - 1], 2.0);
  EXPECT_EQ(root[in.pos.test_pos - 1], 70.0);  // "F"
  EXPECT_DOUBLE_EQ(root[in.pos.cut_pos - 1], 15.0);
  EXPECT_DOUBLE_EQ(root[in.pos.cut_pos], 25.0);
  EXPECT_EQ(root[in.pos.gmean_pos - 1], 20.0);
  // The node's class means of the split variable, and its grand mean.
  EXPECT_EQ(root[in.pos.meanmode_pos - 1], 10.0);
  EXPECT_EQ(root[in.pos.grand_pos - 1], 20.0);
  EXPECT_EQ(children(1), (std::vector<int>{4, 3, 2}));  // newest child first
  for (int child = 2; child <= 4; ++child) {
    const std::vector<double> leaf = record(child);
    ASSERT_EQ(leaf.size(), 6u);  // n, class, cost and three counts
    EXPECT_EQ(leaf[0], 3.0);
    EXPECT_EQ(leaf[1], child - 1.0);
    EXPECT_EQ(leaf[2], 0.0);
  }
  EXPECT_EQ(in.termnode(1), 2);
  EXPECT_EQ(in.termnode(9), 4);
  EXPECT_EQ(in.nodes, 4);
}

TEST_F(GrowTree, TwoClassesSplitInTwoByExhaustiveSearch) {
  // The best midpoint of variable 1 separates the classes but for one case.
  setup(2, {{1, 2, 3, 4, 5, 6, 7, 8}, {5, 1, 4, 2, 3, 3, 2, 4}}, {1, 1, 1, 2, 1, 2, 2, 2});
  Init& in = init();
  in.splitsel = 2;
  in.impbuild = 1;
  in.impprune = 5;
  in.mindat = 7;  // only the root may split
  grow();
  const std::vector<double> root = record(1);
  EXPECT_EQ(root[in.pos.var_pos - 1], 1.0);
  EXPECT_EQ(root[in.pos.cut_pos - 1], 3.5);
  // The search changes the missing-value settings for the rest of the run,
  // so the record has no alternate block.
  EXPECT_EQ(in.impbuild, 3);
  EXPECT_EQ(in.impprune, 2);
  EXPECT_EQ(root.size(), static_cast<std::size_t>(in.pos.cut_pos));
  EXPECT_EQ(children(1), (std::vector<int>{3, 2}));
  EXPECT_EQ(record(2)[0], 3.0);
}

TEST_F(GrowTree, StoppingRulesAtTheirBoundaries) {
  const std::vector<double> x{1, 2, 3, 11, 12, 13};
  const std::vector<int> y{1, 1, 1, 2, 2, 2};
  // n equal to mindat: the root stays terminal.
  setup(2, {x}, y);
  init().mindat = 6;
  grow();
  EXPECT_TRUE(children(1).empty());
  EXPECT_EQ(record(1).size(), 5u);
  // One case more than mindat: it splits.
  setup(2, {x}, y);
  init().mindat = 5;
  grow();
  EXPECT_EQ(children(1).size(), 2u);
  // A node number at the limit is not split.
  setup(2, {x}, y);
  init().maxnodeid = 1;
  grow();
  EXPECT_TRUE(children(1).empty());
  // A pure node is terminal whatever its size.
  setup(2, {x}, {1, 1, 1, 1, 1, 1});
  grow();
  EXPECT_TRUE(children(1).empty());
}

TEST_F(GrowTree, SubnodeWithoutCasesIsStoredAsAnEmptyTerminalNode) {
  // Class 2 has one case between two wide classes of twenty: its prior is too
  // small for its line to reach the envelope, so the root splits in two and
  // one child has no case.
  std::vector<double> x;
  std::vector<int> y;
  for (int i = 0; i < 20; ++i) {
    x.push_back(1.0 + 0.2 * i);
    y.push_back(1);
    x.push_back(6.2 + 0.2 * i);
    y.push_back(3);
  }
  x.push_back(5.5);
  y.push_back(2);
  setup(3, {x}, y);
  init().mindat = 30;  // the children stay terminal
  grow();
  ASSERT_EQ(children(1).size(), 3u);
  int empty = 0;
  for (int child = 2; child <= 4; ++child) {
    const std::vector<double> r = record(child);
    if (r[0] == 0.0) {
      ++empty;
      EXPECT_EQ(r, (std::vector<double>{0, 0, 0, 0, 0, 0}));
    }
  }
  EXPECT_EQ(empty, 1);
}

// The forms that take the sample over or borrow it grow the same tree as the
// copying form, whether every case starts at the root or only some do, with
// or without missing cells; a borrowed sample comes back bit for bit.
TEST_F(GrowTree, TakingOrBorrowingTheSampleGrowsTheSameTree) {
  const std::vector<double> a{3, 1, 2, 2, 3, 1, 1, 3, 2, 5, 4, 6};
  const std::vector<double> b{10, 12, 11, 20, 19, 22, 30, 31, 29, 12, 21, 33};
  const std::vector<int> classes{1, 1, 1, 2, 2, 2, 3, 3, 3, 1, 2, 3};
  for (const bool all_at_root : {true, false}) {
    for (const bool missing : {false, true}) {
      SCOPED_TRACE(::testing::Message() << all_at_root << missing);
      std::vector<std::vector<double>> records[3];
      std::vector<int> terminal[3];
      for (int form = 0; form < 3; ++form) {
        setup(3, {a, b}, classes);
        Init& in = init();
        if (missing) {
          in.misslearn = 'y';
          in.impbuild = 2;  // the root fills its missing cells with class centres
          in.misind(4, 1) = 'y';
          in.misind(8, 2) = 'y';
        }
        if (!all_at_root) in.termnode(5) = 3;
        const FArray<double> x0 = in.xdata;
        const FArray<char> mis0 = in.misind;
        if (form == 0) {
          grow();
        } else if (form == 1) {
          FArray<double> x = in.xdata;
          FArray<char> mis = in.misind;
          grow_tree(std::move(x), in.cdata, std::move(mis), in.prob, in.termnode);
        } else {
          grow_tree_in_place(in.xdata, in.cdata, in.misind, in.prob, in.termnode);
          EXPECT_EQ(in.xdata, x0);
          EXPECT_EQ(in.misind, mis0);
        }
        for (int id = 1; id <= in.maxnodeid; ++id)
          if (tree_store().contains(id)) records[form].push_back(record(id));
        terminal[form].assign(in.termnode.begin(), in.termnode.end());
      }
      EXPECT_GT(records[0].size(), 1u);
      for (int form = 1; form < 3; ++form) {
        EXPECT_EQ(records[form], records[0]) << form;
        EXPECT_EQ(terminal[form], terminal[0]) << form;
      }
    }
  }
}

}  // namespace
}  // namespace vardel
