#include "report/tree_report.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>
#include <sstream>
#include <vector>

#include "support/harness.hpp"

namespace vardel {
namespace {

using testing_support::Console;
using testing_support::WorkFolder;

// Expected report text, written by hand from the report's layout.
std::string expected_text(const char* name) {
  std::ifstream in(std::string(VARDEL_FIXTURE_DIR) + "/treereport/" + name, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// A name or label as the run stores it: blank padded to 21 characters.
std::string stored(const char* s) {
  return fixed_text(s, kNameLen);
}

// Record of a terminal node (K = counts.size()).
std::vector<double> leaf(int n, int iclass, std::vector<double> counts) {
  std::vector<double> y{double(n), double(iclass), 0.0};
  y.insert(y.end(), counts.begin(), counts.end());
  return y;
}

// Record of a univariate inner node of a run with three predictors: the
// class means or modes, grand value, variable, test entry, three zeros, gmean
// or categorical ordinal, then the cut block.
std::vector<double> inner(int n, int iclass, std::vector<double> counts,
                          std::vector<double> meanmode, int var, int test, double gmean,
                          std::vector<double> cuts) {
  std::vector<double> y = leaf(n, iclass, counts);
  y.insert(y.end(), meanmode.begin(), meanmode.end());
  y.insert(y.end(), {0.0, double(var), double(test), 0.0, 0.0, 0.0, gmean});
  y.insert(y.end(), cuts.begin(), cuts.end());
  return y;
}

// Three classes, listed maybe, no, yes (by first letter); predictors
// temperature_reading and x (numerical) and colour (categorical, 6 codes).
void three_class_run(int varsel) {
  Init& in = init();
  in.outfile = fixed_text("out.txt", kFileNameLen);
  in.nclass = 3;
  in.nvar = 3;
  in.ncat = 1;
  in.splittype = 1;
  in.varsel = varsel;
  in.clabel.assign(3, stored(""));
  in.clabel(1) = stored("yes");
  in.clabel(2) = stored("no");
  in.clabel(3) = stored("maybe");
  in.noc.assign(3, 0);
  in.noc(1) = 30;
  in.noc(2) = 12;
  in.noc(3) = 8;
  in.vname.assign(3, stored(""));
  in.vname(1) = stored("temperature_reading");
  in.vname(2) = stored("x");
  in.vname(3) = stored("colour");
  in.vtype.assign(3, 'n');
  in.vtype(3) = 'c';
  in.catpos.assign(1, 3);
  in.numcat.assign(1, 6);
  in.catlabel.assign(1, 6, stored(""));
  const char* colours[] = {
      "red", "ultramarine_deep_blue", "lime", "dark_red_burgundy", "sky_blue", "auburn"};
  for (int j = 1; j <= 6; ++j) in.catlabel(1, j) = stored(colours[j - 1]);
  compute_record_positions(in);
  tree_store().start();
}

class TreeReport : public ::testing::Test {
 protected:
  void SetUp() override { testing_support::fresh_run_state(); }
  std::string report() {
    Console console("");
    print_node_info();
    screen = console.screen();
    return folder.read("out.txt");
  }
  WorkFolder folder;
  std::string screen;
};

// Root split by Levene on temperature_reading into 2, 3 (empty) and 4; node 4
// split by F on x into 11, 12 and 13; node 12 split on colour into 35 and 36.
TEST_F(TreeReport, DeepTreeInAllThreeViews) {
  three_class_run(2);
  init().nodesmax = 11;
  TreeStore& store = tree_store();
  store.add_node(1, 0, inner(50, 1, {30, 12, 8}, {1.25, 3.5, 6.0}, 1, 'L', 1.5, {2.5, 4.0}));
  store.add_node(2, 1, leaf(30, 1, {27, 3, 0}));
  store.add_node(3, 1, leaf(0, 0, {0, 0, 0}));
  store.add_node(4, 1, inner(20, 2, {3, 9, 8}, {12.0, 0.5, 100.0}, 2, 'F', 7.0, {10.0, 20.0}));
  store.add_node(11, 4, leaf(5, 2, {0, 3, 2}));
  // Codes 2 4 1 6 5 go left, 3 right; class yes has no case here. The first two
  // sorted labels fill exactly 23 characters, which does not yet end a line.
  store.add_node(12, 4, inner(12, 2, {0, 6, 6}, {0, 4, 2}, 3, 'F', 1, {5, 1, 0, 2, 4, 1, 6, 5, 3}));
  store.add_node(13, 4, leaf(3, 1, {3, 0, 0}));
  store.add_node(35, 12, leaf(8, 2, {0, 6, 2}));
  store.add_node(36, 12, leaf(4, 3, {0, 0, 4}));

  EXPECT_EQ(report(), expected_text("deep_tree.txt"));
  EXPECT_EQ(screen, "  Number of terminal nodes in final tree =       5\n");
  EXPECT_EQ(init().nodesfinal, 8);
  EXPECT_EQ(init().nodesterminal, 5);
}

TEST_F(TreeReport, RootOnlyTree) {
  Init& in = init();
  in.outfile = fixed_text("out.txt", kFileNameLen);
  in.nclass = 2;
  in.nvar = 1;
  in.splittype = 1;
  in.varsel = 3;
  in.clabel.assign(2, stored(""));
  in.clabel(1) = stored("spam");
  in.clabel(2) = stored("ham");
  in.noc.assign(2, 0);
  in.noc(1) = 1234;
  in.noc(2) = 5;
  compute_record_positions(in);
  tree_store().start();
  tree_store().add_node(1, 0, leaf(1239, 1, {1234, 5}));

  EXPECT_EQ(report(), expected_text("root_only.txt"));
  EXPECT_EQ(screen, "  Number of terminal nodes in final tree =       1\n");
}

// The column before the split variable in a node's first row: the second
// variable of a 2D interaction, else blanks; categorical rows likewise.
TEST_F(TreeReport, FirstRowNamesTheInteractionVariable) {
  struct Case {
    int varsel;
    int test;
    int var;
    std::vector<double> cuts;
    std::string row;
  };
  const Case cases[] = {
      {1,
       1,
       2,
       {10.0, std::numeric_limits<double>::max()},
       "       1      50          2   temperatu       x        <=   10.000    \n"},
      {1,
       0,
       2,
       {10.0, -std::numeric_limits<double>::max()},
       "       1      50          2" + std::string(19, ' ') + "x        <=   10.000    \n"},
      {3,
       0,
       1,
       {-0.5, 1e6},
       "       1      50          2" + std::string(19, ' ') + "temperatu<= -0.50000    \n"},
      {1,
       1,
       3,
       {2, 1, 0, 3, 1, 2},
       "       1      50          2   temperatu       colour   =lime           red            \n"},
  };
  for (const Case& c : cases) {
    testing_support::fresh_run_state();
    three_class_run(c.varsel);
    tree_store().add_node(1, 0,
                          inner(50, 1, {30, 12, 8}, {1.0, 1.0, 1.0}, c.var, c.test, 1.0, c.cuts));
    tree_store().add_node(2, 1, leaf(0, 0, {0, 0, 0}));
    std::ostringstream out;
    print_tree(out, 1, 5, 2);
    const std::string text = out.str();
    EXPECT_EQ(text.substr(0, text.find('\n') + 1), c.row) << "varsel " << c.varsel;
  }
}

}  // namespace
}  // namespace vardel
