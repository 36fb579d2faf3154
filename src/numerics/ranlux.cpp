// Subtract-with-borrow generator with luxury skipping, single precision.
#include "numerics/ranlux.hpp"

#include <cstdint>
#include <cstdlib>

namespace vardel {
namespace {

constexpr float kTwoM24 = 1.0f / 16777216.0f;  // 2^-24: one unit of a seed word
constexpr float kTwoM12 = kTwoM24 * 4096.0f;   // numbers below this get padded
constexpr float kTwo12 = 4096.0f;

// Position after p in the ring 24, 23, ..., 1, 24, ...
int next_in_ring(int p) {
  return p == 1 ? Ranlux::kBlock : p - 1;
}

}  // namespace

float Ranlux::advance() {
  float uni = seed(j24_) - seed(i24_) - carry_;
  if (uni < 0.0f) {
    uni = uni + 1.0f;
    carry_ = kTwoM24;
  } else {
    carry_ = 0.0f;
  }
  seed(i24_) = uni;
  i24_ = next_in_ring(i24_);
  j24_ = next_in_ring(j24_);
  return uni;
}

void Ranlux::skip(int count) {
  // A word k 2^-24 is held as the integer k: every step of the float
  // arithmetic above is exact, so integers give the same words, and the
  // borrow needs no branch.
  constexpr float kTwo24 = 16777216.0f;
  std::array<std::int32_t, kBlock> word{};
  for (std::size_t k = 0; k < word.size(); ++k)
    word[k] = static_cast<std::int32_t>(seeds_[k] * kTwo24);
  auto i = static_cast<std::size_t>(i24_ - 1);
  auto j = static_cast<std::size_t>(j24_ - 1);
  std::int32_t borrow = carry_ > 0.0f ? 1 : 0;
  for (int step = 0; step < count; ++step) {
    const std::int32_t uni = word[j] - word[i] - borrow;
    borrow = uni < 0 ? 1 : 0;
    word[i] = uni + (borrow << 24);
    i = i == 0 ? kBlock - 1 : i - 1;
    j = j == 0 ? kBlock - 1 : j - 1;
  }
  for (std::size_t k = 0; k < word.size(); ++k) seeds_[k] = static_cast<float>(word[k]) * kTwoM24;
  i24_ = static_cast<int>(i) + 1;
  j24_ = static_cast<int>(j) + 1;
  carry_ = borrow != 0 ? kTwoM24 : 0.0f;
}

// Seed words from a linear congruential sequence started at seed.
void Ranlux::start(int level, int jseed_in) {
  luxlev_ = level;
  nskip_ = level <= kMaxLevel ? kSkip[static_cast<std::size_t>(level)] : level - 24;
  in24_ = 0;
  inseed_ = jseed_in;
  std::int64_t jseed = jseed_in;
  for (int i = 1; i <= kBlock; ++i) {
    const std::int64_t k = jseed / 53668;
    jseed = 40014 * (jseed - k * 53668) - k * 12211;
    if (jseed < 0) jseed = jseed + 2147483563;
    seed(i) = static_cast<float>(jseed % 16777216) * kTwoM24;
  }
  i24_ = 24;
  j24_ = 10;
  carry_ = 0.0f;
  if (seed(24) == 0.0f) carry_ = kTwoM24;
  kount_ = 0;
  mkount_ = 0;
  started_ = true;
}

void Ranlux::go(int level, int seed_in, int k1, int k2) {
  int lev = kMaxLevel;
  if (level < 0) {
    lev = kDefaultLevel;
  } else if (level <= kMaxLevel) {
    lev = level;
  } else if (level >= 24 && level <= 2000) {
    lev = level;
    for (int ilx = 0; ilx <= kMaxLevel; ++ilx)
      if (level == kSkip[static_cast<std::size_t>(ilx)] + 24) lev = ilx;
  }
  start(lev, seed_in > 0 ? seed_in : kDefaultSeed);

  // Restart at a break point: run past k2 * 10^9 + k1 numbers (delivered and
  // skipped alike) and recover the position within the block.
  const long long skip1 = k1 > 0 ? k1 : 0;
  const long long skip2 = k2 > 0 ? k2 : 0;
  if (skip1 + skip2 == 0) return;
  kount_ = skip1;
  mkount_ = skip2;
  for (long long outer = 1; outer <= skip2 + 1; ++outer) {
    const long long inner = outer == skip2 + 1 ? skip1 : kGiga;
    skip(static_cast<int>(inner));
  }
  const long long p = nskip_ + kBlock;
  long long in24 = kount_ % p;
  if (mkount_ > 0) in24 = (mkount_ * (kGiga % p) + in24) % p;
  // A count that ends inside the skipped stretch cannot be a break point;
  // start a fresh block from there.
  in24_ = in24 > kBlock - 1 ? 0 : static_cast<int>(in24);
}

void Ranlux::fill(std::span<float> out) {
  if (!started_) start(kDefaultLevel, kDefaultSeed);
  for (float& value : out) {
    value = advance();
    // Pad numbers with fewer than 12 significant bits from the next word, and
    // never deliver an exact zero.
    if (value < kTwoM12) {
      value = value + kTwoM24 * seed(j24_);
      if (value == 0.0f) value = kTwoM24 * kTwoM24;
    }
    in24_ = in24_ + 1;
    if (in24_ == kBlock) {
      in24_ = 0;
      kount_ = kount_ + nskip_;
      skip(nskip_);
    }
  }
  kount_ = kount_ + static_cast<long long>(out.size());
  while (kount_ >= kGiga) {
    mkount_ = mkount_ + 1;
    kount_ = kount_ - kGiga;
  }
}

// Words 1..24 are the seed words as integers; word 25 packs the pointers,
// the block position and the level, negative when a borrow is pending.
std::array<int, 25> Ranlux::save() const {
  std::array<int, 25> out{};
  for (int i = 1; i <= kBlock; ++i)
    out[static_cast<std::size_t>(i - 1)] = static_cast<int>(seed(i) * kTwo12 * kTwo12);
  out[24] = i24_ + 100 * j24_ + 10000 * in24_ + 1000000 * luxlev_;
  if (carry_ > 0.0f) out[24] = -out[24];
  return out;
}

void Ranlux::restore(std::span<const int, 25> state) {
  for (int i = 1; i <= kBlock; ++i)
    seed(i) = static_cast<float>(state[static_cast<std::size_t>(i - 1)]) * kTwoM24;
  carry_ = state[24] < 0 ? kTwoM24 : 0.0f;
  int isd = std::abs(state[24]);
  i24_ = isd % 100;
  isd = isd / 100;
  j24_ = isd % 100;
  isd = isd / 100;
  in24_ = isd % 100;
  isd = isd / 100;
  luxlev_ = isd;
  if (luxlev_ <= kMaxLevel) {
    nskip_ = kSkip[static_cast<std::size_t>(luxlev_)];
  } else if (luxlev_ >= 24) {
    nskip_ = luxlev_ - 24;
  } else {
    nskip_ = kSkip[kMaxLevel];
    luxlev_ = kMaxLevel;
  }
  inseed_ = -1;
  started_ = true;
}

RanluxStatus Ranlux::status() const {
  return {luxlev_, inseed_, static_cast<int>(kount_), static_cast<int>(mkount_)};
}

Ranlux& ranlux_state() {
  static Ranlux state;
  return state;
}

void rluxgo(int level, int seed, int k1, int k2) {
  ranlux_state().go(level, seed, k1, k2);
}
void ranlux(std::span<float> out) {
  ranlux_state().fill(out);
}
std::array<int, 25> rluxut() {
  return ranlux_state().save();
}
void rluxin(std::span<const int, 25> state) {
  ranlux_state().restore(state);
}
RanluxStatus rluxat() {
  return ranlux_state().status();
}

}  // namespace vardel
