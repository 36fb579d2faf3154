// Deterministic synthetic learning samples for the whole-run guards: integer
// arithmetic only (no library maths), so the files are the same everywhere.
//
// The class depends on the first three numerical predictors and on the first
// categorical one; the rest are noise. Values have three decimals and look
// roughly normal (sum of four uniforms); a share of cells can be "NA".
#pragma once

#include <cstdint>
#include <sstream>
#include <string>

namespace vardel::testing_support {

struct SampleShape {
  int cases;
  int numerical;
  int categorical;
  int classes;
  int missing_per_mille;  // share of predictor cells written as NA
  std::uint64_t seed;
};

class SplitMix {
 public:
  explicit SplitMix(std::uint64_t seed) : state_(seed) {}
  // Uniform in 0..n-1.
  int below(int n) {
    state_ += 0x9E3779B97F4A7C15ULL;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    z ^= z >> 31;
    return static_cast<int>(z % static_cast<std::uint64_t>(n));
  }

 private:
  std::uint64_t state_;
};

struct SampleFiles {
  std::string dsc;
  std::string dat;
};

inline SampleFiles make_sample(const SampleShape& s, const std::string& name) {
  SplitMix rng(s.seed);
  std::ostringstream dsc;
  dsc << name << ".dat\nNA\ncolumn name type\n";
  int col = 0;
  for (int j = 1; j <= s.numerical; ++j) dsc << ++col << " x" << j << " n\n";
  for (int j = 1; j <= s.categorical; ++j) dsc << ++col << " c" << j << " c\n";
  dsc << col + 1 << " class d\n";

  std::ostringstream dat;
  for (int i = 0; i < s.cases; ++i) {
    long score = 0;  // in thousandths
    std::string line;
    auto cell = [&](const std::string& text) {
      line += rng.below(1000) < s.missing_per_mille ? std::string("NA") : text;
      line += ' ';
    };
    for (int j = 0; j < s.numerical; ++j) {
      int v = -2000;
      for (int u = 0; u < 4; ++u) v += rng.below(1000);
      if (j < 3) score += v;
      const int a = v < 0 ? -v : v;
      std::string text(v < 0 ? "-" : "");
      text += std::to_string(a / 1000);
      text += '.';
      const std::string frac = std::to_string(1000 + a % 1000);
      cell(text + frac.substr(1));
    }
    for (int j = 0; j < s.categorical; ++j) {
      const int level = rng.below(6);
      if (j == 0) score += 800 * (level % 3);
      cell("level" + std::to_string(level));
    }
    score += rng.below(1400) - 700;
    long k = (score + 2500) * s.classes / 5000;
    k = k < 0 ? 0 : (k >= s.classes ? s.classes - 1 : k);
    dat << line << "class" << k + 1 << '\n';
  }
  return {dsc.str(), dat.str()};
}

}  // namespace vardel::testing_support
