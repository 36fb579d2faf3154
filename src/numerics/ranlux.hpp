// The program's one uniform generator: Luescher's subtract-with-borrow
// generator with luxury levels, after James (Comput. Phys. Commun. 79 (1994)
// 111), in single precision.
//
// rluxgo(level, seed, k1, k2) restarts the shared generator; ranlux(out) fills
// out with uniform numbers in the open interval (0, 1). If ranlux is called
// before any restart, it first starts at level 3 with seed 314159265.
// rluxut/rluxin save and restore the full state as 25 integers; rluxat reports
// the level, the starting seed and the count of numbers generated.
//
// Levels: below 0 means 3; 0..4 skip 0, 24, 73, 199, 365 numbers after each
// block of 24 delivered; 24..2000 give the block length p directly (p - 24
// skipped), mapped back to 0..4 when p is one of theirs; anything else is 4.
#pragma once

#include <array>
#include <span>

namespace vardel {

struct RanluxStatus {
  int level = 0;  // luxury level 0..4, or p for a direct block length
  int seed = 0;   // seed of the last restart; -1 after rluxin
  int k1 = 0;     // numbers generated (delivered plus skipped), modulo 10^9
  int k2 = 0;     // ... and in units of 10^9
};

class Ranlux {
 public:
  static constexpr int kMaxLevel = 4;
  static constexpr int kDefaultLevel = 3;
  static constexpr int kDefaultSeed = 314159265;
  static constexpr int kBlock = 24;  // numbers delivered between skips
  static constexpr std::array<int, kMaxLevel + 1> kSkip = {0, 24, 73, 199, 365};

  void go(int level, int seed, int k1, int k2);
  void fill(std::span<float> out);
  std::array<int, 25> save() const;
  void restore(std::span<const int, 25> state);
  RanluxStatus status() const;
  // Back to the state before any restart: the next fill starts at the default.
  void reset() { *this = Ranlux{}; }

 private:
  static constexpr int kGiga = 1000000000;  // unit of the high counter

  float& seed(int i) { return seeds_[static_cast<std::size_t>(i - 1)]; }
  float seed(int i) const { return seeds_[static_cast<std::size_t>(i - 1)]; }
  float advance();       // one subtract-with-borrow step; returns the new number
  void skip(int count);  // `count` steps whose numbers are thrown away
  void start(int level, int seed);

  bool started_ = false;
  std::array<float, kBlock> seeds_{};  // 24-bit words as multiples of 2^-24
  int i24_ = 24;                       // lag pointers into the ring of 24
  int j24_ = 10;
  float carry_ = 0.0f;
  int in24_ = 0;  // numbers delivered in the present block
  int luxlev_ = kDefaultLevel;
  int nskip_ = kSkip[kDefaultLevel];
  int inseed_ = 0;
  long long kount_ = 0;   // numbers generated, below kGiga
  long long mkount_ = 0;  // ... in units of kGiga
};

// The instance shared by every caller in the program.
Ranlux& ranlux_state();

void rluxgo(int level, int seed, int k1, int k2);
void ranlux(std::span<float> out);
std::array<int, 25> rluxut();
void rluxin(std::span<const int, 25> state);
RanluxStatus rluxat();

}  // namespace vardel
