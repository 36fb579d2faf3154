#include "run/dialogue.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>
#include <stdexcept>

#include "run/dialogue_steps.hpp"
#include "run/run_program.hpp"
#include "support/whole_run.hpp"

namespace vardel {
namespace {

using testing_support::Console;

std::string lines(std::string s) {  // '|' stands for a line end
  for (char& c : s)
    if (c == '|') c = '\n';
  return s;
}

using testing_support::read_whole_file;

// The questions of the screen from the option question on, one a line: choice
// questions are named by the fourth word of their "Choose 1" line, and file
// questions, refusals, warnings and remarks are kept as they show.
std::string questions_shown(const std::string& screen) {
  std::string s = screen.substr(screen.find("advanced options"));
  for (std::size_t p = 0; (p = s.find(": ", p)) != std::string::npos;) s.replace(p, 2, ":\n");
  std::istringstream in(s);
  std::string line, menu, out;
  for (std::getline(in, line); std::getline(in, line);) {
    if (line.rfind("  Choose 1 ", 0) == 0) {
      std::istringstream words(line);
      for (int i = 0; i < 4; ++i) words >> menu;
    }
    const std::string t(trim(adjustl(line)));
    if (t.rfind("Input your choice ", 0) == 0) {
      out += menu + t.substr(17) + "\n";
    } else if (t.rfind("Input", 0) == 0 || t.rfind("Enter", 0) == 0 ||
               t.rfind("This file", 0) == 0 || t.rfind("Splus or R code for", 0) == 0 ||
               t.rfind("In univariate", 0) == 0) {
      out += t + "\n";
    }
  }
  return out;
}

// Expected questions from short names; N stands for nobs, a name:arg fills in its argument.
std::string questions_expected(const std::string& names, int nobs) {
  std::map<std::string, std::string> q;
  std::ifstream table(std::string(VARDEL_FIXTURE_DIR) + "/dialogue/questions.txt");
  for (std::string key, text; std::getline(table, key, '\t') && std::getline(table, text);)
    q[key] = text;
  std::istringstream in(names);
  std::string name, out;
  while (in >> name) {
    const std::size_t colon = name.find(':');
    std::string arg = colon == std::string::npos ? "" : name.substr(colon + 1);
    for (char& c : arg)
      if (c == '_') c = ' ';
    std::string text = q.at(name.substr(0, colon));
    if (std::size_t p = text.find('@'); p != std::string::npos) text.replace(p, 1, arg);
    if (std::size_t p = text.find(":N]"); p != std::string::npos)
      text.replace(p + 1, 1, std::to_string(nobs));
    out += text + "\n";
  }
  return out;
}

class Dialogue : public testing_support::WholeRun {
 protected:
  // Copies a data set (an example, or "tiny" of the fixtures) into the work folder.
  void copy_data(const std::string& name) {
    const std::filesystem::path dir = name == "tiny"
                                          ? std::filesystem::path(VARDEL_FIXTURE_DIR) / "dialogue"
                                          : std::filesystem::path(VARDEL_EXAMPLES_DIR) / name;
    copy_files(dir, name, {".dsc", ".dat"});
  }
};

struct DialogueCase {
  const char* data;
  const char* answers;    // after the option question, '|' for line ends
  const char* questions;  // short names, see questions_expected
  const char* batch;      // batch lines after the option level
  const char* codes;      // varsel splitsel impbuild impprune
  double cost21 = 1.0;    // cost(2, 1): a case of class 1 put in class 2
};

TEST_F(Dialogue, QuestionsAndBatchFileFollowTheAnswersAndTheData) {
  const char* e2 = "5.0000000000000003E-002";
  const DialogueCase cases[] = {
      {"iris", "||||||||||||",
       "split var2 priors costs alpha prune folds se mindat:2 predict latex allclear",
       "1|1|2|1|E2|1|10|1.0000000000000000|2|2|1|1", "2 1 0 0"},
      {"anes96", "1|1||3|0.4||2|2|||3||||",
       "split var3 sel:2 priors prior:Clinton prior:Dole costs cost:Dole_as_Clinton "
       "cost:Clinton_as_Dole alpha prune mindat:5 predict latex allclear",
       "1|1|2|3|0.40000000000000002|1.0000000000000000|2|2.0000000000000000|1.0000000000000000|E2|"
       "3|5|2|1|1",
       "2 2 0 0", 2.0},
      {"anes96", "|3||||||||||",
       "split var3 priors costs prune folds se mindat:5 predict latex allclear",
       "1|3|2|1|1|10|1.0000000000000000|5|2|1|1", "3 2 0 0"},
      {"iris", "||||||||||2|t.tex|2|t.tex|res.out|job||c.txt",
       "split var2 priors costs alpha prune folds se mindat:2 predict latex latexfile allclear "
       "allclearfile used:latex_file. allclearfile used:output_file. allclearfile "
       "used:input_file_for_batch_job. allclearfile",
       "1|1|2|1|E2|1|10|1.0000000000000000|2|2|2|t.tex|1|2|c.txt|1", "2 1 0 0"},
      {"iris", "3|2|||||||||1|2|p.R||||",
       "split var2 pair priors costs fraction prune folds se mindat:2 plot lang plotfile:R predict "
       "latex allclear",
       "3|2|1|2|1|E2|1|10|1.0000000000000000|2|1|2|p.R|1|2|1|1", "1 1 0 0"},
      {"penguins", "3||2|||||||||||1|2||",
       "split var2 pair priors costs alpha fraction prune folds se mindat:2 plot predict build:3 "
       "remark prune2 latex allclear",
       "3|1|2|2|1|E2|E2|1|10|1.0000000000000000|2|2|2|1|2|1|1", "2 1 1 1"},
      {"penguins", "2|||||||||||",
       "split priors costs prune folds se mindat:2 predict build:2 prune6 latex allclear",
       "2|2|1|1|10|1.0000000000000000|2|2|2|5|1|1", "0 0 2 5"},
      {"tiny", "3|1||2|||||||||1||s.txt||||",
       "split var3 pair sel:1 priors costs alpha fraction prune folds se mindat:2 plot nawarn "
       "lang plotfile:Splus predict latex allclear",
       "3|1|1|2|2|1|E2|E2|1|10|1.0000000000000000|2|1|1|s.txt|1|2|3|1|1", "2 2 3 2"},
  };
  for (const DialogueCase& c : cases) {
    SCOPED_TRACE(c.answers);
    testing_support::fresh_run_state();
    copy_data(c.data);
    const std::string head = std::string("1|res.out|1|") + c.data + ".dsc|2|";
    for (const char* f : {"job", "res.out", "t.tex", "c.txt", "p.R", "s.txt"})
      std::filesystem::remove(folder.path() / f);
    ASSERT_EQ(run(lines(std::string("2|job|res.out|") + c.data + ".dsc|2|" + c.answers + "|")), 0)
        << screen;
    EXPECT_EQ(questions_shown(screen), questions_expected(c.questions, init().nobs));
    std::string batch = c.batch;
    for (std::size_t p; (p = batch.find("E2")) != std::string::npos;) batch.replace(p, 2, e2);
    EXPECT_EQ(folder.read("job"), lines(head + batch + "|"));
    const Init& in = init();
    const std::string codes = std::to_string(in.varsel) + " " + std::to_string(in.splitsel) + " " +
                              std::to_string(in.impbuild) + " " + std::to_string(in.impprune);
    EXPECT_EQ(codes, c.codes);
    EXPECT_EQ(in.cost(2, 1), c.cost21);
  }
}

TEST_F(Dialogue, TestSamplePruningReplaysAndMatchesItsFixtures) {
  // Pruning by test sample: the test file and the prediction file are asked
  // without the prediction question, and a replay repeats the typed run.
  copy_data("iris");
  const std::string answers = "|||||2|||iris.dat|pred.txt||";
  ASSERT_EQ(run(lines("2|job|res.out|iris.dsc|2|" + answers + "|")), 0) << screen;
  EXPECT_EQ(folder.read("job"),
            lines("1|res.out|1|iris.dsc|2|1|1|2|1|5.0000000000000003E-002|2|1.0000000000000000|2|"
                  "iris.dat|pred.txt|1|1|1|"));
  testing_support::fresh_run_state();
  ASSERT_EQ(run(folder.read("job")), 0) << screen;
  const std::string replayed = folder.read("res.out");
  const std::string predicted = folder.read("pred.txt");
  testing_support::fresh_run_state();
  std::string typed = answers;
  typed.replace(typed.find("pred.txt|"), 9, "pred.txt|1|");  // both files now exist
  ASSERT_EQ(run(lines("1|res.out|1|iris.dsc|2|" + typed + "|")), 0) << screen;
  EXPECT_EQ(folder.read("res.out"), replayed);
  EXPECT_EQ(folder.read("pred.txt"), predicted);
  const std::filesystem::path runs = std::filesystem::path(VARDEL_FIXTURE_DIR) / "runs";
  EXPECT_EQ(replayed, read_whole_file(runs / "iris_test_sample.out"));
  EXPECT_EQ(predicted, read_whole_file(runs / "iris_test_sample.pred"));
}

TEST_F(Dialogue, PredictionFileForCasesWithoutClassColumn) {
  copy_data("iris");
  folder.write("new.dat", "5.1 3.5 1.4 0.2\n6.3 2.9 5.6 1.8\n5.9 3.0 4.2 1.5\n");
  ASSERT_EQ(run(lines("1|res.out|iris.dsc|2||||||||||1|2|new.dat|pred.txt|||")), 0) << screen;
  EXPECT_NE(screen.find("Enter file name of the test data file:"), std::string::npos);
  EXPECT_EQ(folder.read("pred.txt"), lines("Case_id, Terminal_id, Predicted_label|"
                                           "1 2     setosa|2 4  virginica|3 3 versicolor|"));
  EXPECT_NE(folder.read("res.out").find("Total obs in Test sample =            3"),
            std::string::npos);
}

TEST_F(Dialogue, EarlyEndInBatchFileCreationStillBuildsTheTree) {
  // Learning data with missing values, a complete test file and test-sample
  // pruning leave the dialogue before the latex question; in batch-file
  // creation the tree is grown and reported before the batch file is closed.
  copy_data("tiny");
  folder.write("t.dat", "5.1 3.3 yes\n2.1 3.0 no\n4.7 1.7 yes\n2.6 1.6 no\n");
  ASSERT_EQ(run(lines("2|job|res.out|tiny.dsc|2|||1||||2|||t.dat|p.txt|||")), 0) << screen;
  EXPECT_EQ(folder.read("job"), lines("1|res.out|1|tiny.dsc|2|1|1|1|2|1|5.0000000000000003E-002|"
                                      "2|1.0000000000000000|2|t.dat|p.txt|1|3|"));
  EXPECT_EQ(screen.find("latex"), std::string::npos);
  EXPECT_NE(folder.read("res.out").find("Test sample misclassification cost"), std::string::npos);
  EXPECT_NE(screen.find("  Selected options are stored in file: job"), std::string::npos);
}

TEST_F(Dialogue, ReplayGivesTheOutputOfTypedAnswers) {
  copy_data("iris");
  const std::string answers = "||3|1|2||2|2|||3|||0.1||5|0.5|3||||";
  ASSERT_EQ(run(lines("2|job|res.out|iris.dsc|2|" + answers + "|")), 0) << screen;
  testing_support::fresh_run_state();
  ASSERT_EQ(run(folder.read("job")), 0) << screen;
  const std::string replayed = folder.read("res.out");
  testing_support::fresh_run_state();
  ASSERT_EQ(run(lines("1|res.out|1|iris.dsc|2|" + answers)), 0) << screen;
  EXPECT_EQ(folder.read("res.out"), replayed);
  EXPECT_NE(replayed.find("Number of folds for cross-validation:       5"), std::string::npos);
}

TEST_F(Dialogue, ReplayOfExhaustiveSearchWithMissingValuesReadsOneLineTooMany) {
  copy_data("tiny");
  ASSERT_EQ(run(lines("2|job|res.out|tiny.dsc|2||3||||||||||")), 0) << screen;
  EXPECT_EQ(folder.read("job"),
            lines("1|res.out|1|tiny.dsc|2|1|3|2|1|1|10|1.0000000000000000|2|2|3|1|1|"));
  testing_support::fresh_run_state();
  ASSERT_EQ(run(folder.read("job")), 0) << screen;
  EXPECT_NE(screen.find("latex code, 2 otherwise ([1:2], <cr>=1): Error, value out of range\n"),
            std::string::npos)
      << screen;
  EXPECT_NE(folder.read("res.out").find("Number of terminal nodes"), std::string::npos);
}

TEST_F(Dialogue, OutputFileMayTakeAnExistingNameOutsideBatchFileCreation) {
  copy_data("iris");
  folder.write("job", "");
  Console console(lines("1|job|1|iris.dsc|1|"));
  run_program();
  EXPECT_NE(console.screen().find("  A file by that name already exists.\n"), std::string::npos);
  EXPECT_EQ(console.screen().find("already used by the input file"), std::string::npos);
}

TEST_F(Dialogue, UnbuiltOptionsStopAfterTheRunHeader) {
  copy_data("iris");
  EXPECT_EQ(run(lines("1|res.out|iris.dsc|2|2|||||||||||")), 4);
  const std::string line =
      "  ***ERROR*** Not available in this version: linear combination splits\n";
  EXPECT_NE(screen.find(line), std::string::npos);
  const std::string out = folder.read("res.out");
  EXPECT_EQ(out.substr(out.size() - line.size()), line);
  EXPECT_NE(out.find(" Minimum size of each node"), std::string::npos);
}

struct PruneImputationCase {
  int testtype, treesize, prunetype;
  char misstest, misslearn;
  int splittype, splitsel;
  const char* answer;
  bool goes_on;
  int impprune;
  bool asked;
};

TEST(PruneImputationQuestion, DecisionSteps) {
  const PruneImputationCase cases[] = {
      {3, 2, 0, 'n', 'y', 1, 1, "", true, 0, false},   // nothing to prune with
      {2, 1, 2, 'n', 'y', 1, 1, "", false, 0, false},  // the dialogue ends here
      {2, 2, 0, 'n', 'y', 1, 1, "", false, 0, false}, {2, 1, 1, 'n', 'y', 1, 1, "", true, 5, true},
      {2, 1, 2, 'y', 'n', 2, 0, "6", true, 6, true},
  };
  for (const PruneImputationCase& c : cases) {
    SCOPED_TRACE(&c - cases);
    testing_support::fresh_run_state();
    Init& in = init();
    in.testtype = c.testtype, in.treesize = c.treesize, in.prunetype = c.prunetype;
    in.misstest = c.misstest, in.misslearn = c.misslearn;
    in.splittype = c.splittype, in.splitsel = c.splitsel;
    Console console(std::string(c.answer) + "\n");
    AnswerLog log(nullptr);
    EXPECT_EQ(ask_prune_imputation(log), c.goes_on);
    EXPECT_EQ(in.impprune, c.impprune);
    EXPECT_EQ(console.screen().find("pruning (test or cross-validation)") != std::string::npos,
              c.asked);
  }
  testing_support::fresh_run_state();
}

}  // namespace
}  // namespace vardel
