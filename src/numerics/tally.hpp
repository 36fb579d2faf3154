// tally: how often each code 1..K occurs in a list of codes.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace vardel {

// Adds to counts[k - 1] the occurrences of code k (1..counts.size()) in
// codes. Consecutive codes go to four partial counts in turn, so that a run
// of one code does not wait on its own increments.
inline void tally(std::span<const int> codes, std::span<int> counts) {
  constexpr std::size_t kWays = 4;
  const std::size_t k = counts.size();
  std::vector<int> partial(kWays * k, 0);
  std::size_t i = 0;
  for (; i + kWays <= codes.size(); i += kWays) {
    for (std::size_t w = 0; w < kWays; ++w)
      ++partial[w * k + static_cast<std::size_t>(codes[i + w] - 1)];
  }
  for (; i < codes.size(); ++i) ++partial[static_cast<std::size_t>(codes[i] - 1)];
  for (std::size_t w = 0; w < kWays; ++w)
    for (std::size_t c = 0; c < k; ++c) counts[c] += partial[w * k + c];
}

}  // namespace vardel
