#include "report/string_sort.hpp"

#include <algorithm>
#include <string_view>

namespace vardel {
namespace {

unsigned char padded_char(std::string_view s, std::size_t i) {
  return i < s.size() ? static_cast<unsigned char>(s[i]) : static_cast<unsigned char>(' ');
}

// a > b on the first width characters, both padded with blanks.
bool greater(std::string_view a, std::string_view b, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i) {
    const unsigned char ca = padded_char(a, i);
    const unsigned char cb = padded_char(b, i);
    if (ca != cb) return ca > cb;
  }
  return false;
}

}  // namespace

void string_sort(std::span<std::string> texts, std::size_t width) {
  for (std::size_t i = 1; i < texts.size(); ++i) {
    std::size_t j = 0;
    while (j < i && !greater(texts[j], texts[i], width)) ++j;
    if (j == i) continue;
    std::string moving = std::move(texts[i]);
    std::move_backward(texts.begin() + static_cast<std::ptrdiff_t>(j),
                       texts.begin() + static_cast<std::ptrdiff_t>(i),
                       texts.begin() + static_cast<std::ptrdiff_t>(i) + 1);
    texts[j] = std::move(moving);
  }
}

}  // namespace vardel
