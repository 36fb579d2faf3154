// The test-sample part of the cost report.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report/cost_report.hpp"
#include "support/harness.hpp"
#include "support/split_tree.hpp"

namespace vardel {
namespace {

using testing_support::CaseGroup;

// Classes "no" and "yes"; the root splits at 5 into a leaf predicting no and
// one predicting yes.
class TestSampleReport : public ::testing::Test {
 protected:
  // The report after its resubstitution part.
  std::string test_part(const std::vector<CaseGroup>& sample, int wantpredict = 1,
                        char misstest = 'n') {
    testing_support::fresh_run_state();
    testing_support::two_class_run("no", "yes");
    Init& in = init();
    in.testtype = 2;
    in.testlabel = 'y';
    in.wantpredict = wantpredict;
    in.impprune = 1;  // node means, not built for a test sample with missing values
    in.misstest = misstest;
    in.predictfile = fixed_text("pred.txt", kFileNameLen);
    in.noc.assign(2, 5);
    testing_support::add_split(1, 0, 1, 5.0, 5.0);
    testing_support::add_leaf(2, 1, 1, 0.0);
    testing_support::add_leaf(3, 1, 2, 0.0);
    testing_support::set_test_sample(sample);
    folder.write("out.txt", "");
    cost_info();
    const std::string out = folder.read("out.txt");
    return out.substr(out.find('\n', out.find("S.E. of resubstitution")) + 1);
  }
  testing_support::WorkFolder folder;
};

TEST_F(TestSampleReport, MajorityRuleOnlyWhenStrictlyCheaper) {
  const struct {
    const char* name;
    std::vector<CaseGroup> sample;
    bool note;
    const char* correct;
    const char* cost;
  } cases[] = {
      {"all no is cheaper", {{1, 1, 3}, {9, 1, 2}}, true, "5", "    0.000"},
      {"a tie keeps the tree", {{1, 1, 2}, {9, 1, 1}, {9, 2, 1}}, false, "3", "   0.2500"},
      {"one class, tree errs", {{9, 2, 3}, {1, 2, 1}}, true, "4", "    0.000"},
      {"one class, tree exact", {{9, 2, 3}}, false, "3", "    0.000"},
      // All wrong: all no (3/4) displaces the tree, then all yes (1/4) that.
      {"a later class displaces an earlier", {{9, 1, 1}, {1, 2, 3}}, true, "3", "   0.2500"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string out = test_part(c.sample);
    EXPECT_EQ(out.find("Majority rule is better") != std::string::npos, c.note);
    const std::string lines = std::string("# correct =            ") + c.correct +
                              "\n  Overall test data estimate of misclassification cost =" + c.cost;
    EXPECT_NE(out.find(lines), std::string::npos) << out;
  }
}

// The report shows the majority rule; the prediction file keeps the tree's.
TEST_F(TestSampleReport, ReportAndPredictionFile) {
  testing_support::Console console("");
  EXPECT_EQ(test_part({{1, 1, 3}, {9, 1, 2}}, 2),
            "\n"
            " Majority rule is better than the induced rule.\n"
            " Use majority rule for prediction of test sample.\n"
            "\n"
            "  Classification Matrix for Test Data\n"
            "                  Predicted Class\n"
            "  Actual class   no  yes   Prior #obs\n"
            "  -----------------------------------\n"
            "  no              5    0   0.500  5\n"
            "  yes             0    0   0.500  0\n"
            "  -----------------------------------\n"
            "  Total obs in Test sample =            5 ,    # correct =            5\n"
            "  Overall test data estimate of misclassification cost =    0.000    \n"
            "  S.E. of test data misclassification cost =    0.000    \n");
  EXPECT_EQ(console.screen(), "  Prediction results are stored in file: pred.txt\n");
  EXPECT_EQ(folder.read("pred.txt"),
            "Case_id, Terminal_id, Actual_label, Predicted_label\n"
            "1 2  no  no\n2 2  no  no\n3 2  no  no\n4 3  no yes\n5 3  no yes\n");

  folder.write("pred.txt", "kept");
  test_part({{1, 1, 1}});
  EXPECT_EQ(folder.read("pred.txt"), "kept");
}

TEST_F(TestSampleReport, NodeMeanImputationOfTheTestSampleIsNotBuilt) {
  EXPECT_THROW(test_part({{1, 1, 1}}, 1, 'y'), std::logic_error);
}

}  // namespace
}  // namespace vardel
