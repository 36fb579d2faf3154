#include "prune/pour_test_print.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "support/harness.hpp"
#include "support/split_tree.hpp"

namespace vardel {
namespace {

using testing_support::WorkFolder;

// Two classes "A" and "BB", one predictor; the root splits at 5.
class PourTestPrint : public ::testing::Test {
 protected:
  void SetUp() override {
    testing_support::fresh_run_state();
    testing_support::two_class_run("A", "BB");
    Init& in = init();
    in.impprune = 2;
    in.predictfile = fixed_text("pred.txt", kFileNameLen);
    TreeStore& store = tree_store();
    // n, class, cost, counts; class means, grand mean, var, test "F", fk, gmean, cut point.
    store.add_node(1, 0, std::vector<double>{4, 1, 0.5, 2, 2, 2.0, 8.0, 5.0, 1, 70, 0, 5.0, 5.0});
    store.add_node(2, 1, std::vector<double>{2, 1, 0, 2, 0});
    store.add_node(3, 1, std::vector<double>{2, 2, 0, 0, 2});
    x.assign(3, 1, 0.0);
    x(1, 1) = 3.0;
    x(2, 1) = 7.0;
    x(3, 1) = 9.0;
    mis.assign(3, 1, 'n');
  }
  WorkFolder folder;
  FArray<double> x;
  FArray<char> mis;
  FArray<int> table, termid;
};

TEST_F(PourTestPrint, RowsWithTheTrueLabel) {
  init().testlabel = 'y';
  const std::vector<int> y{1, 2, 0};  // the last case has a blank label
  pour_test_print(table, x, y, mis, 3, termid);
  EXPECT_EQ(folder.read("pred.txt"),
            "Case_id, Terminal_id, Actual_label, Predicted_label\n"
            "1 2  A  A\n"
            "2 3 BB BB\n"
            "3 3    BB\n");
  EXPECT_EQ(termid(1), 2);
  EXPECT_EQ(table(1, 1), 1);
  EXPECT_EQ(table(2, 2), 1);
  EXPECT_EQ(table(1, 2) + table(2, 1), 0);
}

TEST_F(PourTestPrint, RowsWithoutAClassColumn) {
  init().testlabel = 'n';
  const std::vector<int> y{0, 0, -1};
  pour_test_print(table, x, y, mis, 3, termid);
  EXPECT_EQ(folder.read("pred.txt"),
            "Case_id, Terminal_id, Predicted_label\n"
            "1 2  A\n"
            "2 3 BB\n"
            "3 3 BB\n");
}

}  // namespace
}  // namespace vardel
