// Reading speed of the free-form reader on a data file: cases of 25 text
// tokens, one case per line, as the data-file reader reads them.
#include <benchmark/benchmark.h>

#include <sstream>
#include <string>
#include <vector>

#include "numerics/list_reader.hpp"

namespace {

std::string make_data(int lines, int tokens) {
  std::string s;
  unsigned x = 12345;
  for (int i = 0; i < lines; ++i) {
    for (int j = 0; j < tokens; ++j) {
      x = x * 1103515245u + 12345u;  // a small LCG for varied tokens
      if (j) s += ' ';
      switch ((x >> 16) % 4) {
        case 0:
          s += std::to_string((x >> 8) % 1000);
          break;
        case 1:
          s += std::to_string((x >> 8) % 100) + "." + std::to_string((x >> 4) % 10);
          break;
        case 2:
          s += "level" + std::to_string((x >> 8) % 7);
          break;
        default:
          s += "?";
      }
    }
    s += '\n';
  }
  return s;
}

void BM_DataCases(benchmark::State& state) {
  const int lines = static_cast<int>(state.range(0));
  const std::string data = make_data(lines, 25);
  std::vector<std::string> values(25);
  std::vector<vardel::ReadTarget> targets;
  for (std::string& v : values) targets.push_back(vardel::text(v, 21));
  for (auto _ : state) {
    std::istringstream file(data);
    vardel::ListReader in(file);
    long cases = 0;
    while (in.read(targets)) ++cases;
    benchmark::DoNotOptimize(cases);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(data.size()));
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * lines);
}
BENCHMARK(BM_DataCases)->Arg(100000)->Unit(benchmark::kMillisecond);

// The same size of file, all tokens reals, read into doubles.
void BM_RealCases(benchmark::State& state) {
  const int lines = static_cast<int>(state.range(0));
  std::string data;
  for (int i = 0; i < lines; ++i)
    for (int j = 0; j < 25; ++j)
      data += std::to_string(i % 977) + "." + std::to_string(j) + (j < 24 ? " " : "\n");
  std::vector<double> values(25);
  std::vector<vardel::ReadTarget> targets(values.begin(), values.end());
  for (auto _ : state) {
    std::istringstream file(data);
    vardel::ListReader in(file);
    long cases = 0;
    while (in.read(targets)) ++cases;
    benchmark::DoNotOptimize(cases);
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * lines);
}
BENCHMARK(BM_RealCases)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
