// Test support for whole runs: a fixture that starts each test from a fresh
// run state in its own work folder, runs the program on a string of answers
// and keeps what it showed on the screen.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <string>

#include "run/run_program.hpp"
#include "support/harness.hpp"

namespace vardel::testing_support {

inline std::string read_whole_file(const std::filesystem::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

class WholeRun : public ::testing::Test {
 protected:
  void SetUp() override { fresh_run_state(); }
  void TearDown() override { fresh_run_state(); }
  // Copies dir/NAME.EXT for each extension into the work folder.
  void copy_files(const std::filesystem::path& dir, const std::string& name,
                  std::initializer_list<const char*> extensions) {
    for (const char* ext : extensions)
      folder.write(name + ext, read_whole_file(dir / (name + ext)));
  }
  // Runs the program on `answers` and returns its exit status.
  int run(const std::string& answers) {
    Console console(answers);
    const int status = run_program();
    screen = console.screen();
    return status;
  }
  WorkFolder folder;
  std::string screen;
};

}  // namespace vardel::testing_support
