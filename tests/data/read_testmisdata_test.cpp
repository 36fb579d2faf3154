#include "data/read_testmisdata.hpp"

#include <gtest/gtest.h>

#include "data/read_misdata.hpp"
#include "support/harness.hpp"

namespace vardel {
namespace {

using testing_support::Console;
using testing_support::stop_status;
using testing_support::WorkFolder;

const std::string kHead = "learn.txt\nNA\ncol name type\n";

class ReadTest : public ::testing::Test {
 protected:
  void SetUp() override {
    testing_support::fresh_run_state();
    init().outfile = fixed_text("out.txt", kFileNameLen);
    init().misslearn = 'y';
  }
  // Reads the learning sample, then the test file "t.txt" with one of the
  // readers; returns the exit status (-1 if it returned).
  int run(const std::string& vars, const std::string& learn, const std::string& test,
          bool labelled = true, const std::string& names = "t.txt\n") {
    SetUp();
    folder.write("d.dsc", kHead + vars);
    folder.write("learn.txt", learn);
    folder.write("t.txt", test);
    Console console("d.dsc\n" + names + "\n");
    const int status = stop_status([labelled] {
      read_misdata();
      if (labelled)
        read_testmisdata();
      else
        read_testmis_no_class();
    });
    screen = console.screen();
    return status;
  }
  bool shown(const std::string& text) const { return screen.find(text) != std::string::npos; }
  WorkFolder folder;
  std::string screen;
};

// Predictors a (numerical) and kind (categorical: red 1, blue 2), classes A, B.
TEST_F(ReadTest, LabelAnywhereMissingValuesUnknownCategoriesAndDroppedCases) {
  struct Layout {
    std::string vars, learn, test;
  };
  const Layout layouts[] = {
      {"1 a n\n2 kind c\n3 y d\n", "1.5 red A\n2 blue B\n",
       "3.5 blue B\n4 green A\n9 red NA\nNA NA A\n"},
      {"1 y d\n2 a n\n3 kind c\n", "A 1.5 red\nB 2 blue\n",
       "B 3.5 blue\nA 4 green\nNA 9 red\nA NA NA\n"},
      {"1 a n\n2 y d\n3 kind c\n", "1.5 A red\n2 B blue\n",
       "3.5 B blue\n4 A green\n9 NA red\nNA A NA\n"},
      // With an "x" variable columns are taken by type; one case per line
      // keeps the narrower count right.
      {"1 a n\n2 skip x\n3 y d\n4 kind c\n", "1.5 q A red\n2 q B blue\n",
       "3.5 q B blue\n4 q A green\n9 q NA red\nNA q A NA\n"},
  };
  for (const Layout& l : layouts) {
    SCOPED_TRACE(l.vars);
    ASSERT_EQ(run(l.vars, l.learn, l.test), -1) << screen;
    const Init& in = init();
    ASSERT_EQ(in.ntest, 3);  // the case labelled NA is gone
    const double x[3][2] = {{3.5, 2}, {4, 0}, {0, 0}};
    const char miss[3][2] = {{'n', 'n'}, {'n', 'n'}, {'y', 'y'}};
    const int y[3] = {2, 1, 1};
    for (int i = 1; i <= 3; ++i) {
      EXPECT_EQ(in.ytest(i), y[i - 1]);
      for (int j = 1; j <= 2; ++j) {
        EXPECT_EQ(in.xtest(i, j), x[i - 1][j - 1]) << i << "," << j;
        EXPECT_EQ(in.misindtest(i, j), miss[i - 1][j - 1]) << i << "," << j;
      }
    }
  }
}

TEST_F(ReadTest, FaultsStopOrEndTheRun) {
  const std::string vars = "1 a n\n2 y d\n";
  const std::string learn = "1 A\n2 B\n";
  // An unseen class label stops with its messages.
  EXPECT_EQ(run(vars, learn, "1 A\n2 C\n"), 0);
  EXPECT_TRUE(
      shown("  ***ERROR*** Unseen categories exist in test data\n"
            "  ***Program stopped due to the error in test file***\n"))
      << screen;
  // A bad quoted token in the count.
  EXPECT_EQ(run(vars, learn, "1 A\n'2'x B\n"), 0);
  EXPECT_TRUE(
      shown("  ***ERROR*** Test file t.txt has illegal value\n"
            "  ***Program stopped due to the error in test file***\n"))
      << screen;
  // A non-number in a numerical column is an input failure naming the file.
  EXPECT_EQ(run(vars, learn, "1 A\nabc B\n"), 3);
  EXPECT_TRUE(shown("t.txt") && shown("\"abc\"")) << screen;
  // With an "x" variable the count reads too few tokens a case: a file with
  // one token a line counts three cases where two stand, and the read runs out.
  EXPECT_EQ(run("1 a n\n2 y d\n3 z x\n", "1 A q\n2 B q\n", "1\nA\nq\n2\nB\nq\n"), 3);
  EXPECT_TRUE(shown("t.txt, line 6: the file ends")) << screen;
}

TEST_F(ReadTest, MissingFileIsAskedAgainAndEmptyFileHasNoCases) {
  ASSERT_EQ(run("1 a n\n2 y d\n", "1 A\n", "", true, "none.txt\nt.txt\n"), -1) << screen;
  EXPECT_TRUE(
      shown("  Enter file name of the data file:   ***ERROR*** File none.txt does not "
            "exist\n\n  Enter file name of the data file: \n"))
      << screen;
  EXPECT_EQ(init().ntest, 0);
  EXPECT_EQ(init().xtest.size(), 0);
}

TEST_F(ReadTest, WithoutClassEveryCaseIsInTheFirstClass) {
  struct Layout {
    std::string vars, learn, test;
  };
  const Layout layouts[] = {
      {"1 a n\n2 kind c\n3 y d\n", "1.5 red A\n2 blue B\n", "3.5 blue\nNA green\n"},
      // The "d" column has no token; "x" columns are dropped.
      {"1 a n\n2 y d\n3 z x\n4 kind c\n", "1.5 A q red\n2 B q blue\n", "3.5 q blue\nNA q green\n"},
  };
  for (const Layout& l : layouts) {
    SCOPED_TRACE(l.vars);
    ASSERT_EQ(run(l.vars, l.learn, l.test, false), -1) << screen;
    const Init& in = init();
    EXPECT_TRUE(shown("  Enter file name of the test data file: "));
    ASSERT_EQ(in.ntest, 2);
    EXPECT_EQ(in.xtest(1, 1), 3.5);
    EXPECT_EQ(in.xtest(1, 2), 2.0);
    EXPECT_EQ(in.xtest(2, 1), 0.0);
    EXPECT_EQ(in.xtest(2, 2), 0.0);
    EXPECT_EQ(in.misindtest(2, 1), 'y');
    EXPECT_EQ(in.misindtest(2, 2), 'n');
    EXPECT_EQ(in.ytest(2), 1);
    EXPECT_EQ(in.noctest(1), 2);
    EXPECT_EQ(in.noctest(2), 0);
  }
}

}  // namespace
}  // namespace vardel
