#include "data/recodemiscat.hpp"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "numerics/format.hpp"

namespace vardel {

void recodemiscat(Init& in, TextTable& x) {
  const int nobs = in.nobs;
  in.numcat.assign(in.ncat, 0);
  std::vector<std::vector<std::string>> labels(static_cast<std::size_t>(in.ncat));
  std::vector<std::unordered_map<std::string_view, int>> codes(static_cast<std::size_t>(in.ncat));

  for (int k = 1; k <= in.ncat; ++k) {
    const int col = in.catpos(k);
    auto& seen = codes[static_cast<std::size_t>(k - 1)];
    auto& list = labels[static_cast<std::size_t>(k - 1)];
    for (int i = 1; i <= nobs; ++i) {
      if (in.misind(i, col) != 'n') continue;
      const std::string_view token = x(i, col);
      if (seen.contains(token)) continue;
      // The key views the table's cell, which stays in place while this map lives.
      seen.emplace(token, static_cast<int>(list.size()) + 1);
      list.emplace_back(token);
      ++in.numcat(k);
    }
  }

  const int maxcat = std::max(1, in.largest_numcat());
  in.catlabel.assign(in.ncat, maxcat, std::string(kNameLen, ' '));
  for (int k = 1; k <= in.ncat; ++k) {
    const auto& list = labels[static_cast<std::size_t>(k - 1)];
    for (std::size_t j = 0; j < list.size(); ++j)
      in.catlabel(k, static_cast<int>(j) + 1) = fixed_text(list[j], kNameLen);
  }

  for (int k = 1; k <= in.ncat; ++k) {
    const int col = in.catpos(k);
    const auto& seen = codes[static_cast<std::size_t>(k - 1)];
    std::vector<std::string> recoded(static_cast<std::size_t>(nobs), "0");
    for (int i = 1; i <= nobs; ++i) {
      auto it = seen.find(x(i, col));
      if (it != seen.end()) recoded[static_cast<std::size_t>(i - 1)] = std::to_string(it->second);
    }
    for (int i = 1; i <= nobs; ++i) x.set(i, col, recoded[static_cast<std::size_t>(i - 1)]);
  }
}

}  // namespace vardel
