#include "report/run_header.hpp"

#include <gtest/gtest.h>

#include "support/harness.hpp"

namespace vardel {
namespace {

using testing_support::Console;
using testing_support::WorkFolder;

// A two-class run with one-letter labels, ready for print_info.
void two_class_run(Init& in) {
  in.outfile = fixed_text("out.txt", kFileNameLen);
  in.bannerline = fixed_text(" VARDEL", kFileNameLen);
  in.nclass = 2;
  in.nobs = 4;
  in.nvar = 1;
  in.clabel.assign(2, std::string(kNameLen, ' '));
  in.clabel(1) = fixed_text("B", kNameLen);
  in.clabel(2) = fixed_text("A", kNameLen);
  in.noc.assign(2, 2);
  in.misind.assign(4, 1, 'n');
  in.misslearn = 'n';
  in.misstest = 'n';
  in.prob.assign(2, 0.5);
  in.cost.assign(2, 2, 1.0);
  in.cost(1, 1) = 0.0;
  in.cost(2, 2) = 0.0;
  in.splittype = 2;
  in.priortype = 1;
  in.treesize = 2;
  in.testtype = 3;
  in.mindat = 2;
}

class RunHeader : public ::testing::Test {
 protected:
  void SetUp() override { testing_support::fresh_run_state(); }
  std::string header() {
    Console console("");
    print_info();
    return folder.read("out.txt");
  }
  WorkFolder folder;
};

TEST_F(RunHeader, UnequalCostsShowTheTableInClassOrder) {
  Init& in = init();
  two_class_run(in);
  in.costtype = 2;
  in.cost(2, 1) = 12.0;  // predicting A for a case of class B
  const std::string text = header();
  // One-letter labels: the prior table still aligns with "Class".
  EXPECT_NE(text.find(" Prior selection: Equal prior probabilities\n"
                      "   Class prior (scaled to have sum 1)\n"
                      "   A        0.500\n"
                      "   B        0.500\n"),
            std::string::npos)
      << text;
  // Labels in class order (A before B); columns are predicted classes.
  EXPECT_NE(text.find(" Cost selection: Unequal misclassification costs\n"
                      "                  Predicted Class\n"
                      "                A      B      \n"
                      "   Actual class ---------------------\n"
                      "   A              0.000  1.000\n"
                      "   B             12.000  0.000\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find(" Split type: Linear combination splits\n"), std::string::npos);
  EXPECT_NE(text.find(" Tree size determination: Direct Stopping\n"), std::string::npos);
  EXPECT_EQ(text.find("Imputation option for test"), std::string::npos);
}

TEST_F(RunHeader, PruningSampleImputationIsShownOnlyWhenAsked) {
  Init& in = init();
  two_class_run(in);
  in.costtype = 1;
  in.misslearn = 'y';
  in.impbuild = 4;
  in.treesize = 1;
  in.prunetype = 1;
  in.impprune = 2;
  std::string text = header();
  EXPECT_NE(text.find(" Imputation option for building trees: Impute at root node only and fit "
                      "method\n"),
            std::string::npos);
  EXPECT_NE(text.find(" Imputation option for test, CV, or pruning sample: Nodewise mean/mode "
                      "imputation for each node \n"),
            std::string::npos)
      << text;
  // A test file without missing values used for pruning: the question was not asked.
  in.testtype = 2;
  in.prunetype = 2;
  in.testfile = fixed_text("test.dat", kFileNameLen);
  text = header();
  EXPECT_EQ(text.find("Imputation option for test"), std::string::npos);
  EXPECT_NE(text.find(" Overall test sample error cost computed\n Test data file is: test.dat\n"),
            std::string::npos);
}

}  // namespace
}  // namespace vardel
