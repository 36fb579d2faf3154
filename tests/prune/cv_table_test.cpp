// The printed table of CV costs, byte for byte.
#include "prune/cv_table.hpp"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace vardel {
namespace {

std::string table_text(const std::vector<SubtreeCost>& costs, TreeChoice choice,
                       int largest_terminal, const std::vector<int>& pnodes0) {
  std::ostringstream out;
  write_cv_table(out, costs, choice, largest_terminal, pnodes0);
  return out.str();
}

const char* const kHead =
    "\n"
    "  CV misclassification cost and SE of subtrees:\n"
    "  Subtree      CV R(t)           CV SE       # Terminal Nodes\n";
const char* const kKey =
    "  * denotes 0-SE Tree\n"
    "  ** denotes given-SE Tree\n";

// Each expected row is spelt field by field.
// clang-format off
TEST(CvTable, MarksTheZeroSeAndGivenSeTrees) {
  const std::vector<SubtreeCost> costs = {
      {0.35, 0.1069}, {0.30, 0.05}, {0.25, 0.0375}, {0.27, 0.2}, {0.5, 0.111803}};
  const std::string expected = std::string(kHead) +
                               // a 1x f11.6 4x g15.4 i12
                               " (largest)" " " "   0.350000" "    " "     0.1069    " "          12\n"
                               // i7 4x f11.6 4x g15.4 i12
                               "      1" "    " "   0.300000" "    " "     0.5000E-01" "           7\n"
                               // i7 "*" 3x ...
                               "      2" "*" "   " "   0.250000" "    " "     0.3750E-01" "           4\n"
                               // i7 "**" 2x ...
                               "      3" "**" "  " "   0.270000" "    " "     0.2000    " "           2\n"
                               "      4" "    " "   0.500000" "    " "     0.1118    " "           1\n" +
                               kKey + "\n";
  EXPECT_EQ(table_text(costs, {2, 3}, 12, {7, 4, 2, 1}), expected);
}

TEST(CvTable, OneTreeBothZeroSeAndGivenSe) {
  // The largest tree is both: " (largest)*" with no blank after the star.
  const std::vector<SubtreeCost> costs = {{0.2, 1.5}, {0.4, 0.0}};
  const std::string largest = std::string(kHead) +
                              " (largest)*" "   0.200000" "    " "      1.500    " "           5\n"
                              "      1" "    " "   0.400000" "    " "      0.000    " "           1\n" +
                              kKey + " * tree is same as ** tree\n" "\n";
  EXPECT_EQ(table_text(costs, {0, 0}, 5, {1}), largest);

  // A smaller tree that is both shows a single star.
  const std::vector<SubtreeCost> raised = {{0.41, 0.0}, {0.4, 12.5}, {0.6, 0.0}};
  const std::string subtree = std::string(kHead) +
                              " (largest)" " " "   0.410000" "    " "      0.000    " "           6\n"
                              "      1" "*" "   " "   0.400000" "    " "      12.50    " "           3\n"
                              "      2" "    " "   0.600000" "    " "      0.000    " "           1\n" +
                              kKey + " * tree is same as ** tree\n" "\n";
  EXPECT_EQ(table_text(raised, {1, 1}, 6, {3, 1}), subtree);
}

// clang-format on

}  // namespace
}  // namespace vardel
