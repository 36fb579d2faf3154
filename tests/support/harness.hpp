// Test support: a fresh working folder, files written into it, standard input
// and output redirected to strings, and the run's single instances reset.
#pragma once

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "numerics/format.hpp"
#include "prune/prune_arrays.hpp"
#include "run/init.hpp"
#include "run/stop.hpp"
#include "timing/clock.hpp"
#include "tree/tree_store.hpp"

namespace vardel::testing_support {

// Creates a new empty folder and makes it the working folder for its lifetime.
class WorkFolder {
 public:
  WorkFolder() : previous_(std::filesystem::current_path()) {
    static int counter = 0;
    path_ = std::filesystem::temp_directory_path() /
            ("vardel_test_" + std::to_string(::getpid()) + "_" + std::to_string(++counter));
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
    std::filesystem::current_path(path_);
  }
  ~WorkFolder() {
    std::filesystem::current_path(previous_);
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  void write(const std::string& name, const std::string& content) const {
    std::ofstream(path_ / name, std::ios::binary) << content;
  }
  std::string read(const std::string& name) const {
    std::ifstream in(path_ / name, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
  }
  bool exists(const std::string& name) const { return std::filesystem::exists(path_ / name); }
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path previous_;
  std::filesystem::path path_;
};

// Feeds `answers` to standard input and collects standard output.
class Console {
 public:
  explicit Console(const std::string& answers) : in_(answers) {
    old_in_ = std::cin.rdbuf(in_.rdbuf());
    old_out_ = std::cout.rdbuf(out_.rdbuf());
  }
  ~Console() {
    std::cin.rdbuf(old_in_);
    std::cout.rdbuf(old_out_);
    std::cin.clear();
  }
  std::string screen() const { return out_.str(); }

 private:
  std::istringstream in_;
  std::ostringstream out_;
  std::streambuf* old_in_;
  std::streambuf* old_out_;
};

// Resets the run's single instances and fixes the clocks.
inline void fresh_run_state() {
  init().reset();
  tree_store().reset();
  prune_arrays().reset();
  fixed_clocks().date = DateTime{2026, 11, 22, 9, 5};
  fixed_clocks().elapsed = ClockReading{1.25, 1.0, 0.25, 2.5};
}

// Runs f; returns the exit status it stopped with, or -1 if it returned.
template <class F>
int stop_status(F&& f) {
  try {
    f();
  } catch (const RunStopped& stop) {
    return stop.status;
  }
  return -1;
}

}  // namespace vardel::testing_support
