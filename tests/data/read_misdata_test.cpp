#include "data/read_misdata.hpp"

#include <gtest/gtest.h>

#include "support/harness.hpp"

namespace vardel {
namespace {

using testing_support::Console;
using testing_support::stop_status;
using testing_support::WorkFolder;

constexpr const char* kPressEnter = "\n  Press ENTER or RETURN to quit\n";

class ReadMisdata : public ::testing::Test {
 protected:
  void SetUp() override {
    testing_support::fresh_run_state();
    init().outfile = fixed_text("out.txt", kFileNameLen);
    init().misslearn = 'y';
  }
  // Runs read_misdata on description file "d.dsc"; returns the exit status
  // (-1 if it returned) and leaves the screen in `screen`.
  int run(const std::string& dsc, const std::string& data,
          const std::string& answers = "d.dsc\n\n") {
    folder.write("d.dsc", dsc);
    folder.write("data.txt", data);
    Console console(answers);
    const int status = stop_status([] { read_misdata(); });
    screen = console.screen();
    return status;
  }
  // The error lines followed by the request for ENTER.
  void expect_stop(int status, const std::string& lines) {
    EXPECT_EQ(status, 0);
    EXPECT_NE(screen.find(lines + "\n" + kPressEnter), std::string::npos) << screen;
  }
  WorkFolder folder;
  std::string screen;
};

const std::string kHead = "data.txt\nNA\ncol name type\n";

TEST_F(ReadMisdata, DescriptionFaultsStopWithTheirMessagesInOrder) {
  // An unknown type is reported before the missing "d".
  expect_stop(run(kHead + "1 a n\n2 b q\n3 c n\n", "1 2 3\n"),
              "  ***ERROR*** Error in variable type\n  Please use \"d\", \"n\", \"c\", or \"x\"\n"
              "  ***Program stopped due to an error in dsc file***");
  expect_stop(run(kHead + "1 a n\n2 b n\n", "1 2\n"),
              "  ***ERROR*** Error in variable type\n  There is no \"d\" type variable\n"
              "  ***Program stopped due to an error in dsc file***");
  // Duplicate names are found among all variables, "x" included, by sorted position.
  expect_stop(run(kHead + "3 y d\n1 same x\n2 \" same\" n\n", "1 2 3\n"),
              "  ***ERROR*** Error in variable name\n"
              "  Variable names are the same at columns   1 and   2\n"
              "  Please use different variable names.\n"
              "  ***Program stopped due to an error in dsc file***");
  expect_stop(run("nofile.txt\nNA\nh\n1 a n\n2 y d\n", ""),
              "  ***ERROR*** File nofile.txt does not exist\n"
              "  ***Program stopped due to an error in dsc file***");
}

TEST_F(ReadMisdata, MissingDescriptionFileIsAskedAgain) {
  const int status = run(kHead + "1 a n\n2 y d\n", "1 A\n2 B\n", "missing.dsc\nd.dsc\n");
  EXPECT_EQ(status, -1);
  EXPECT_NE(screen.find("   ***ERROR*** File missing.dsc does not exist\n\n"
                        "  Enter name of variable description file: \n"),
            std::string::npos)
      << screen;
}

TEST_F(ReadMisdata, DataFileFaults) {
  // A trailing incomplete case leaves more tokens than whole cases.
  expect_stop(run(kHead + "1 a n\n2 y d\n", "1 A\n2 B\n3\n"),
              "  ***ERROR*** Entries in data file not multiple of no. of records\n"
              "  ***Verify that description file ends with a carriage return\n"
              "  ***Program stopped due to the error in dsc file***");
  // Several cases on one line: only the first of each line is a case.
  expect_stop(run(kHead + "1 a n\n2 y d\n", "1 A 2 B\n3 C\n"),
              "  ***ERROR*** Entries in data file not multiple of no. of records\n"
              "  ***Verify that description file ends with a carriage return\n"
              "  ***Program stopped due to the error in dsc file***");
  // An empty quoted predictor token is a blank string.
  expect_stop(run(kHead + "1 a n\n2 y d\n", "1 A\n'' B\n"),
              "   ***ERROR*** Blank character string at line number           2\n"
              "  ***Program stopped due to an error in data file***");
}

TEST_F(ReadMisdata, NonNumberInNumericalColumnEndsWithOneClearLine) {
  const int status = run(kHead + "1 a n\n2 y d\n", "1 A\nabc B\n");
  EXPECT_NE(status, 0);
  EXPECT_NE(screen.find("data.txt"), std::string::npos);
  EXPECT_NE(screen.find("\"abc\""), std::string::npos) << screen;
}

TEST_F(ReadMisdata, ClassColumnFirstLastMiddleAndExcludedVariables) {
  struct Layout {
    std::string vars, data;
  };
  const Layout layouts[] = {
      {"1 y d\n2 a n\n3 b n\n", "A 1 10\nB 2 20\n"},
      {"1 a n\n2 b n\n3 y d\n", "1 10 A\n2 20 B\n"},
      {"1 a n\n2 y d\n3 b n\n", "1 A 10\n2 B 20\n"},
      // With an excluded variable columns are taken by order, gaps and all.
      {"10 a n\n20 y d\n25 skip x\n30 b n\n", "1 A junk 10\n2 B junk 20\n"},
      // Records in any order; a case spread over lines; quoted tokens.
      {"3 b n\n1 a n\n2 y d\n", "1 'A'\n 10\n2,\"B\",20\n"},
  };
  for (const Layout& layout : layouts) {
    SCOPED_TRACE(layout.vars);
    SetUp();
    ASSERT_EQ(run(kHead + layout.vars, layout.data), -1) << screen;
    const Init& in = init();
    ASSERT_EQ(in.nobs, 2);
    ASSERT_EQ(in.nvar, 2);
    EXPECT_EQ(in.xdata(1, 1), 1.0);
    EXPECT_EQ(in.xdata(2, 2), 20.0);
    EXPECT_EQ(trim(in.clabel(2)), "B");
    EXPECT_EQ(in.cdata(1), 1);
  }
}

TEST_F(ReadMisdata, WithoutExcludedVariablesTheClassColumnNumberIsAPosition) {
  // Columns 2, 4, 6 and no "x": the class's number 4 is taken as its
  // position, so each case reads four tokens and the file runs out early.
  EXPECT_EQ(run(kHead + "2 a n\n4 y d\n6 b n\n", "1 A 10\n2 B 20\n"), 3);
  EXPECT_NE(screen.find("data.txt"), std::string::npos) << screen;
  // With an "x" variable the same numbers only give the order.
  SetUp();
  ASSERT_EQ(run(kHead + "2 a n\n4 y d\n6 b n\n8 z x\n", "1 A 10 q\n2 B 20 q\n"), -1) << screen;
  EXPECT_EQ(init().xdata(2, 2), 20.0);
  EXPECT_EQ(trim(init().clabel(init().cdata(2))), "B");
}

TEST_F(ReadMisdata, MissingValuesLabelsAndCategories) {
  const std::string vars = "1 num n\n2 never n\n3 kind c\n4 y d\n";
  const std::string data =
      "1.5 NA red  A\n"
      "NA  NA 0    B\n"
      "2e1 NA NA   A\n"
      "3   NA Red  NA\n"  // dropped silently: its label is the missing code
      "4d0 NA red  C\n";
  ASSERT_EQ(run(kHead + vars, data), -1) << screen;
  const Init& in = init();
  EXPECT_EQ(in.nobs, 4);
  EXPECT_EQ(in.nclass, 3);
  EXPECT_EQ(in.xdata(3, 1), 20.0);
  EXPECT_EQ(in.xdata(4, 1), 4.0);
  // The column missing everywhere stays in as the constant 0, not flagged.
  for (int i = 1; i <= 4; ++i) EXPECT_EQ(in.misind(i, 2), 'n');
  // Categories by first appearance; "0" is a real category, and the missing
  // cell takes its code too while staying flagged.
  EXPECT_EQ(in.numcat(1), 2);
  EXPECT_EQ(trim(in.catlabel(1, 1)), "red");
  EXPECT_EQ(trim(in.catlabel(1, 2)), "0");
  EXPECT_EQ(in.xdata(2, 3), 2.0);
  EXPECT_EQ(in.xdata(3, 3), 2.0);
  EXPECT_EQ(in.misind(3, 3), 'y');
  EXPECT_EQ(in.misslearn, 'y');
  // All five cases had a missing cell when counted; the never-seen column is
  // then cleared, so the percentage counts only two cells of twelve.
  EXPECT_NE(screen.find("  Cases with 1 or more missing values:              4\n"),
            std::string::npos)
      << screen;
  EXPECT_NE(screen.find("  Percentage of missing values:                 16.67%\n"),
            std::string::npos)
      << screen;
}

TEST_F(ReadMisdata, LongTokensAreCutAt21Characters) {
  ASSERT_EQ(run(kHead + "1 a c\n2 y d\n",
                "abcdefghijklmnopqrstuvwxyz A\nabcdefghijklmnopqrstuZZZ A\nb B\n"),
            -1);
  EXPECT_EQ(init().numcat(1), 2);
  EXPECT_EQ(init().xdata(2, 1), 1.0);
}

}  // namespace
}  // namespace vardel
