#include "prune/pour_test.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "prune/pruned_pours.hpp"
#include "support/harness.hpp"

namespace vardel {
namespace {

constexpr double kBig = std::numeric_limits<double>::max();
using Record = std::vector<double>;

// Terminal node of a three-class tree (n is not read by the walk).
Record leaf(int iclass) {
  return {1, double(iclass), 0, 1, 1, 1};
}

// Split node of a run with three predictors: n, iclass, rt, noc, class means
// or modes of var, grand, var, test, three zeros, gmean (or the categorical
// ordinal), the cut block, then the alternate block if any.
struct Inner {
  int iclass = 1;
  Record noc{5, 9, 2};
  Record meanmode{0.5, 1.5, 2.5};
  double grand = 0.9;
  int var = 1;
  int test = 'F';
  double gmean = 0.0;
  Record cuts{1.0, 2.0};
  Record alt;  // variable, intercepts, slopes, c5, crimcord5

  Record record() const {
    Record y{16, double(iclass), 0};
    for (const Record* part : {&noc, &meanmode}) y.insert(y.end(), part->begin(), part->end());
    y.insert(y.end(), {grand, double(var), double(test), 0, 0, 0, gmean});
    y.insert(y.end(), cuts.begin(), cuts.end());
    y.insert(y.end(), alt.begin(), alt.end());
    return y;
  }
};

// Alternate block with crimcord5 = {-2, 0.5, 3, 7}.
Record alternate(int a, Record slopes, Record intercepts = {0, 0.5, 0}) {
  Record b{double(a)};
  b.insert(b.end(), intercepts.begin(), intercepts.end());
  b.insert(b.end(), slopes.begin(), slopes.end());
  b.insert(b.end(), {0, -2, 0.5, 3, 7});
  return b;
}

// Three classes; predictors 1 and 3 numerical, 2 categorical with codes 1..4.
class Pour : public ::testing::Test {
 protected:
  void SetUp() override {
    testing_support::fresh_run_state();
    Init& in = init();
    in.nclass = 3;
    in.nvar = 3;
    in.ncat = 1;
    in.splittype = 1;
    in.varsel = 1;
    in.impprune = 2;
    in.vtype.assign(3, 'n');
    in.vtype(2) = 'c';
    in.catpos.assign(1, 2);
    in.numcat.assign(1, 4);
    compute_record_positions(in);
    tree_store().start();
    x.assign(1, 3, 0.0);
    mis.assign(1, 3, 'n');
  }

  // Root split; children 2, 3, 4 terminal with classes 1, 2, 3.
  void one_split(const Inner& root) {
    tree_store().add_node(1, 0, root.record());
    for (int k = 1; k <= 3; ++k) tree_store().add_node(k + 1, 1, leaf(k));
  }

  // Node where a single case with these values lands.
  int node_of(double x1, double x2 = 1.0, double x3 = 0.0) {
    x(1, 1) = x1;
    x(1, 2) = x2;
    x(1, 3) = x3;
    PourWork work(init().nclass);
    const std::optional<Landing> landing = land_case(x, mis, 1, work);
    return landing ? landing->node : 0;
  }

  FArray<double> x;
  FArray<char> mis;
};

TEST_F(Pour, NumericalSplitPoints) {
  struct Case {
    Record cuts;
    int test, varsel;
    double x;
    int node;
  };
  const Case cases[] = {
      {{1, 2}, 'F', 1, 1.0, 2},       // equal to a point: that point's child
      {{1, 2}, 'F', 1, 2.5, 4},       // above all points: child K
      {{1, kBig}, 'F', 1, 1e300, 3},  // guard of an unused point
      {{-5, 0}, 'F', 1, -1.0, 3},     // a zero tail catches a non-positive x
      {{1, 3}, 'L', 2, 8.0, 3},       // |8 - 10| under the 1D method
      {{1, 3}, 'L', 2, 10.5, 2},      //
      {{1, 3}, 'L', 1, 8.0, 4},       // x itself under the 2D method
  };
  for (const Case& c : cases) {
    SetUp();
    init().varsel = c.varsel;
    Inner root;
    root.test = c.test;
    root.gmean = 10.0;
    root.cuts = c.cuts;
    one_split(root);
    EXPECT_EQ(node_of(c.x), c.node) << "x " << c.x << " test " << char(c.test);
    EXPECT_EQ(x(1, 1), c.x);
  }
}

TEST_F(Pour, CategoricalLists) {
  // ncutcat 1, 2, 0: code 4 to subnode 1, codes 1 and 3 to subnode 2; the
  // fourth code entry is padding. Unlisted codes go to the last child.
  one_split({.var = 2, .gmean = 1, .cuts = {1, 2, 0, 4, 1, 3, 0}, .alt = {}});
  const double codes[] = {4, 1, 2.6, 2, 0, 7};
  const int nodes[] = {2, 3, 3, 4, 4, 4};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(node_of(1.0, codes[i]), nodes[i]) << codes[i];
}

TEST_F(Pour, MissingSplitValueByOption) {
  // Class 1 is the largest, class 3 has no case. Alternate scores with
  // slopes -1, 0, 1 and intercepts 0, 0.5, 0.
  struct Case {
    int impprune, alt_var;
    double x2;
    char x2_mis;
    double x3, imputed;
    int node;
  };
  const Case cases[] = {
      {1, 2, 1, 'n', 0, 0.5, 2},    // mean of the largest class
      {3, 2, 1, 'n', 0, 0.5, 2},    //
      {2, 2, 1, 'n', 0, 2.2, 4},    // grand
      {4, 2, 1, 'n', 0, -7.0, 1},   // stops at the inner node, nothing imputed
      {5, 2, 2, 'n', 0, 1.5, 3},    // code 2 -> z 0.5: class 2
      {6, 2, 1, 'n', 0, 0.5, 2},    // code 1 -> z -2: class 1 (raw 1 gives 2)
      {5, 2, 4, 'n', 0, 1.5, 3},    // z 7 would pick class 3, which has no case
      {6, 2, 6, 'n', 0, 1.5, 3},    // unseen code enters raw
      {5, 3, 1, 'n', 0.5, 1.5, 3},  // numerical alternate
      {5, 2, 2, 'y', 0, 0.5, 2},    // alternate missing: largest class
      {6, 0, 2, 'n', 0, 0.5, 2},    // no alternate: largest class
  };
  for (const Case& c : cases) {
    SetUp();
    init().impprune = c.impprune;
    one_split(
        {.iclass = 2, .noc = {9, 5, 0}, .grand = 2.2, .alt = alternate(c.alt_var, {-1, 0, 1})});
    mis(1, 1) = 'y';
    mis(1, 2) = c.x2_mis;
    EXPECT_EQ(node_of(-7.0, c.x2, c.x3), c.node) << "impprune " << c.impprune << " x2 " << c.x2;
    EXPECT_EQ(x(1, 1), c.imputed) << "impprune " << c.impprune << " x2 " << c.x2;
  }
}

TEST_F(Pour, AlternateBlockBehindCategoryLists) {
  init().impprune = 6;
  one_split({.meanmode = {2, 3, 4},
             .var = 2,
             .gmean = 1,
             .cuts = {1, 2, 1, 4, 1, 3, 2},
             .alt = alternate(3, {1, -1, 0}, {0, 0, 0})});
  mis(1, 2) = 'y';
  EXPECT_EQ(node_of(0.0, 1.0, 5.0), 4);  // class 1, mode 2 (the largest class has mode 3)
  EXPECT_EQ(x(1, 2), 2.0);
}

// The value stays in the case table, and a 'y' mark is imputed afresh at
// each node that splits on it.
TEST_F(Pour, ImputedAtEachNode) {
  one_split({.grand = 2.2, .alt = {}});
  tree_store().remove_node(4);
  tree_store().add_node(4, 1, Inner{.grand = 7.0, .cuts = {5, 6}, .alt = {}}.record());
  for (int k = 1; k <= 3; ++k) tree_store().add_node(10 + k, 4, leaf(k));
  mis(1, 1) = 'y';
  EXPECT_EQ(node_of(0.0), 13);
  EXPECT_EQ(x(1, 1), 7.0);
}

TEST_F(Pour, TableAndMissingNode) {
  one_split({});
  tree_store().remove_node(3);
  tree_store().add_node(3, 1, Record(6, 0.0));  // a child without cases
  x.assign(6, 3, 0.0);
  mis.assign(6, 3, 'n');
  const double x1[] = {0.5, 0.5, 3.0, 1.5, 3.0, 0.5};
  for (int i = 1; i <= 6; ++i) x(i, 1) = x1[i - 1];
  const std::vector<int> y{1, 2, 3, 1, 0, 4};  // codes 0 and 4 count nowhere
  FArray<int> table(3, 3, 99);
  pour_test(table, x, y, mis, 6);
  FArray<int> expected(3, 3, 0);
  expected(1, 1) = expected(1, 2) = expected(3, 3) = 1;
  EXPECT_EQ(table, expected);

  // A node that is not in the store ends the pour silently.
  tree_store().remove_node(3);
  FArray<int> untouched(2, 2, 7);
  pour_test(untouched, x, y, mis, 6);
  EXPECT_EQ(untouched, FArray<int>(2, 2, 7));
}

// One decoded tree serves many cases: each finds its own way two levels
// down, through a categorical split under a numerical one, and a child number
// that is not in the store ends the walk.
TEST_F(Pour, DecodedTreeWalksEveryCase) {
  one_split({});
  tree_store().remove_node(3);
  tree_store().add_node(
      3, 1, Inner{.var = 2, .gmean = 1, .cuts = {1, 2, 0, 4, 1, 3, 0}, .alt = {}}.record());
  tree_store().add_node(8, 3, leaf(2));   // child 1 of node 3
  tree_store().add_node(10, 3, leaf(3));  // child 3; child 2 (node 9) is absent
  const PourTree tree(tree_store());
  struct Case {
    double x1, x2;
    int node;  // 0: no landing
  };
  const Case cases[] = {{0.5, 4, 2}, {1.5, 4, 8}, {1.5, 2, 10},
                        {3.0, 1, 4}, {1.5, 1, 0}, {1.5, 3, 0}};
  x.assign(6, 3, 0.0);
  mis.assign(6, 3, 'n');
  for (int i = 1; i <= 6; ++i) {
    x(i, 1) = cases[i - 1].x1;
    x(i, 2) = cases[i - 1].x2;
  }
  PourWork work(3);
  for (int i = 1; i <= 6; ++i) {
    const std::optional<Landing> landing = tree.land(x, mis, i, work);
    EXPECT_EQ(landing ? landing->node : 0, cases[i - 1].node) << "case " << i;
  }
}

// Later pours through a pruned tree follow the first pour's paths and give
// the tables a fresh pour gives: after a pruning, after losing one child
// (the pour then ends untouched), and with the root gone.
TEST_F(Pour, PrunedPoursMatchFreshPours) {
  init().impprune = 2;
  one_split({.grand = 1.5, .alt = {}});
  tree_store().remove_node(3);
  tree_store().add_node(
      3, 1,
      Inner{.iclass = 3, .var = 2, .gmean = 1, .cuts = {1, 2, 0, 4, 1, 3, 0}, .alt = {}}.record());
  for (int k = 1; k <= 3; ++k) tree_store().add_node(7 + k, 3, leaf(k));
  const double x1[] = {0.5, 1.5, 1.5, 3.0, 0.0, 1.5};
  const double x2[] = {1, 4, 2, 1, 3, 1};
  x.assign(6, 3, 0.0);
  mis.assign(6, 3, 'n');
  for (int i = 1; i <= 6; ++i) {
    x(i, 1) = x1[i - 1];
    x(i, 2) = x2[i - 1];
  }
  mis(5, 1) = 'y';  // takes grand 1.5: into node 3
  const std::vector<int> y{1, 2, 3, 3, 2, 1};
  PrunedPours pours;
  const std::vector<int> removed[] = {{}, {10}, {8, 9}, {1}};
  for (const std::vector<int>& ids : removed) {
    for (int id : ids) tree_store().remove_node(id);
    FArray<int> kept(3, 3, 7);
    FArray<int> fresh(3, 3, 7);
    pours.pour(kept, x, y, mis, 6);
    pour_test(fresh, x, y, mis, 6);
    EXPECT_EQ(kept, fresh) << "after removing " << ids.size() << " nodes";
  }
}

}  // namespace
}  // namespace vardel
