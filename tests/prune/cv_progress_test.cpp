// Progress lines of the fold loop on standard output.
#include "prune/cv_progress.hpp"

#include <gtest/gtest.h>

#include <string>

namespace vardel {
namespace {

std::string progress(int folds) {
  testing::internal::CaptureStdout();
  cv_progress_start(folds);
  for (int f = 1; f <= folds; ++f) cv_progress_dot(f);
  cv_progress_end();
  return testing::internal::GetCapturedStdout();
}

TEST(CvProgress, OneDotPerFoldInRowsOfFifty) {
  const std::string notice = "  Cross-validation is executing.  Please wait.\n";
  EXPECT_EQ(progress(3), notice + "...\n");
  EXPECT_EQ(progress(52), notice + "  (Each row of dots signifies 50 iterations completed.)\n" +
                              std::string(50, '.') + "\n..\n");
}

}  // namespace
}  // namespace vardel
