#include "run/run_program.hpp"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/whole_run.hpp"

namespace vardel {
namespace {

using testing_support::Console;

using testing_support::read_whole_file;

class RunProgram : public testing_support::WholeRun {
 protected:
  // Copies an example's description, data and answer files into the work folder.
  void copy_example(const std::string& name) {
    copy_files(std::filesystem::path(VARDEL_EXAMPLES_DIR) / name, name, {".dsc", ".dat", ".in"});
  }
};

TEST_F(RunProgram, ExamplesGiveTheExpectedOutputFiles) {
  for (const std::string name : {"iris", "penguins", "anes96"}) {
    SCOPED_TRACE(name);
    testing_support::fresh_run_state();
    copy_example(name);
    folder.write(name + ".out", "");  // as a batch file expects: the overwrite question comes
    ASSERT_EQ(run(folder.read(name + ".in")), 0) << screen;
    const std::string expected =
        read_whole_file(std::filesystem::path(VARDEL_FIXTURE_DIR) / "runs" / (name + ".out"));
    EXPECT_EQ(folder.read(name + ".out"), expected);
  }
}

TEST_F(RunProgram, TwoRunsGiveTheSameOutputFile) {
  copy_example("penguins");
  std::string first;
  for (int round = 0; round < 2; ++round) {
    testing_support::fresh_run_state();
    folder.write("penguins.out", "");
    ASSERT_EQ(run(folder.read("penguins.in")), 0) << screen;
    if (round == 0) first = folder.read("penguins.out");
  }
  EXPECT_EQ(folder.read("penguins.out"), first);
  EXPECT_NE(screen.find("  Pruning Trees...  Cross-validation is executing.  Please wait.\n"
                        "..........\n"),
            std::string::npos)
      << screen;
}

TEST_F(RunProgram, WarrantyAnswerWritesTheTextAndStops) {
  EXPECT_EQ(run("0\n"), 0);
  EXPECT_NE(screen.find("\n  WARRANTY DISCLAIMER\n"
                        "  Because this PROGRAM is free of charge, there is no warranty for it.\n"),
            std::string::npos)
      << screen;
  EXPECT_NE(screen.find("\n  of such damages.\n"), std::string::npos);
  EXPECT_EQ(screen.find("Enter a name of file"), std::string::npos);
}

TEST_F(RunProgram, BatchModeWritesTheAnswersAndEndsAfterTheOptionQuestion) {
  copy_example("iris");
  // The output file may not take the batch file's name in this mode.
  EXPECT_EQ(run("2\njob.txt\njob.txt\nres.out\niris.dsc\n\n\n"), 0) << screen;
  EXPECT_EQ(folder.read("job.txt"), "1\nres.out\n1\niris.dsc\n1\n");
  EXPECT_NE(screen.find("  This file name is already used by the input file for batch job.\n"
                        "  Please try other file name.\n\n"),
            std::string::npos)
      << screen;
  EXPECT_NE(screen.find("  Selected options are stored in file: job.txt\n"
                        "  Use command \"vardel < job.txt\" to run the batch job\n\n"
                        "  Press ENTER or RETURN to quit\n"),
            std::string::npos)
      << screen;
  EXPECT_EQ(folder.read("res.out"), "");  // no tree, no report

  // Replaying the file grows the run, answering the overwrite question with its "1".
  testing_support::fresh_run_state();
  ASSERT_EQ(run(folder.read("job.txt")), 0) << screen;
  EXPECT_NE(folder.read("res.out").find(" Number of learning samples =    150\n"),
            std::string::npos);
}

TEST_F(RunProgram, ExistingBatchFileCanBeReplacedOrRenamed) {
  copy_example("iris");
  folder.write("job.txt", "old");
  folder.write("other.txt", "old");
  EXPECT_EQ(run("2\njob.txt\n2\nother.txt\n1\nres.out\niris.dsc\n1\n\n"), 0) << screen;
  EXPECT_EQ(folder.read("job.txt"), "old");
  EXPECT_EQ(folder.read("other.txt"), "1\nres.out\n1\niris.dsc\n1\n");
}

TEST_F(RunProgram, TooFewAnswersEndTheRunWithAnErrorStatus) {
  copy_example("iris");
  EXPECT_EQ(run("1\nres.out\n"), 2);
  EXPECT_NE(screen.find("Standard input ended"), std::string::npos);
}

}  // namespace
}  // namespace vardel
