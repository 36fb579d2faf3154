// Whole runs on synthetic samples larger than the examples: the output files
// must stay byte-identical to the committed ones (clock fixed). They guard
// growth, cross-validation, pouring and pruning against any change of result.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "run/run_program.hpp"
#include "support/harness.hpp"
#include "synthetic_sample.hpp"

namespace vardel {
namespace {

using testing_support::SampleShape;

struct GuardRun {
  const char* name;
  SampleShape shape;
};

// Three classes with missing cells (nodewise imputation, alternate splits);
// two classes (exhaustive search) with missing cells; mostly categorical.
const GuardRun kRuns[] = {
    {"guard_missing", {3000, 8, 3, 3, 50, 11}},
    {"guard_twoclass", {2500, 6, 2, 2, 20, 12}},
    {"guard_categorical", {3000, 3, 5, 4, 0, 13}},
};

TEST(GuardRuns, OutputFilesStayIdentical) {
  // VARDEL_WRITE_GUARDS=1 writes the fixtures instead (run it on a trusted build).
  const bool write = std::getenv("VARDEL_WRITE_GUARDS") != nullptr;
  for (const GuardRun& run : kRuns) {
    SCOPED_TRACE(run.name);
    testing_support::WorkFolder folder;
    testing_support::fresh_run_state();
    const std::string name = run.name;
    const testing_support::SampleFiles files = testing_support::make_sample(run.shape, name);
    folder.write(name + ".dsc", files.dsc);
    folder.write(name + ".dat", files.dat);
    folder.write(name + ".out", "");
    int status = -1;
    {
      testing_support::Console console("1\n" + name + ".out\n1\n" + name + ".dsc\n1\n");
      status = run_program();
    }
    ASSERT_EQ(status, 0);
    const std::filesystem::path fixture =
        std::filesystem::path(VARDEL_FIXTURE_DIR) / "runs" / (name + ".out");
    if (write) {
      std::ofstream(fixture, std::ios::binary) << folder.read(name + ".out");
      continue;
    }
    std::ifstream in(fixture, std::ios::binary);
    std::stringstream expected;
    expected << in.rdbuf();
    EXPECT_EQ(folder.read(name + ".out"), expected.str());
  }
  testing_support::fresh_run_state();
}

}  // namespace
}  // namespace vardel
