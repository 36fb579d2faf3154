// Reading a learning sample of 1,000,000 cases with 20 numerical and 5
// categorical predictors: the description file, the data file, the checks,
// the recoding and the conversion to numbers, as a run does it.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "data/read_misdata.hpp"
#include "run/init.hpp"

namespace {

constexpr int kNumerical = 20;
constexpr int kCategorical = 5;

// Writes the data set once; returns its folder.
std::filesystem::path make_sample(int cases) {
  const auto dir =
      std::filesystem::temp_directory_path() / ("vardel_bench_" + std::to_string(cases));
  if (std::filesystem::exists(dir / "big.dat")) return dir;
  std::filesystem::create_directories(dir);
  std::ofstream dsc(dir / "big.dsc");
  dsc << "big.dat\nNA\ncolumn name type\n";
  int col = 0;
  for (int j = 1; j <= kNumerical; ++j) dsc << ++col << " x" << j << " n\n";
  for (int j = 1; j <= kCategorical; ++j) dsc << ++col << " c" << j << " c\n";
  dsc << ++col << " class d\n";
  std::ofstream dat(dir / "big.dat");
  unsigned x = 2463534242u;
  auto next = [&x] {  // xorshift: varied but reproducible values
    x ^= x << 13;
    x ^= x >> 17;
    x ^= x << 5;
    return x;
  };
  std::string line;
  for (int i = 0; i < cases; ++i) {
    line.clear();
    for (int j = 0; j < kNumerical; ++j) {
      const unsigned v = next();
      if (v % 100 == 0) {
        line += "NA ";
      } else {
        line += std::to_string(v % 1000) + "." + std::to_string(v / 1000 % 100) + " ";
      }
    }
    for (int j = 0; j < kCategorical; ++j) line += "level" + std::to_string(next() % 8) + " ";
    line += "class" + std::to_string(next() % 4) + "\n";
    dat << line;
  }
  return dir;
}

void BM_ReadLearningSample(benchmark::State& state) {
  const int cases = static_cast<int>(state.range(0));
  const auto dir = make_sample(cases);
  const auto previous = std::filesystem::current_path();
  std::filesystem::current_path(dir);
  for (auto _ : state) {
    vardel::Init& in = vardel::init();
    in.reset();
    in.outfile = std::string("scratch.out") + std::string(69, ' ');
    in.misslearn = 'y';
    std::istringstream answers("big.dsc\n");
    std::ostringstream screen;
    auto* old_in = std::cin.rdbuf(answers.rdbuf());
    auto* old_out = std::cout.rdbuf(screen.rdbuf());
    vardel::read_misdata();
    std::cin.rdbuf(old_in);
    std::cout.rdbuf(old_out);
    benchmark::DoNotOptimize(in.xdata.data());
  }
  std::filesystem::current_path(previous);
  state.SetItemsProcessed(state.iterations() * cases);
}

BENCHMARK(BM_ReadLearningSample)->Arg(1000000)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
