#include "data/text_codes.hpp"

namespace vardel {

namespace {

// Byte by byte: the texts are a few characters long, too short for a call
// of memcmp to pay.
bool same_text(const std::string& a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t k = 0; k < b.size(); ++k)
    if (a[k] != b[k]) return false;
  return true;
}

}  // namespace

std::uint64_t TextCodes::hash(std::string_view text) {
  // Eight bytes at a time, each word mixed by a multiply and a rotation.
  constexpr std::uint64_t kMul = 0x9E3779B97F4A7C15ull;
  std::uint64_t h = text.size() * kMul;
  const char* p = text.data();
  std::size_t n = text.size();
  while (n > 0) {
    std::uint64_t w = 0;
    const std::size_t take = n < 8 ? n : 8;
    // Byte by byte into a register: a short copy through memory would stall
    // the load that follows it.
    for (std::size_t k = 0; k < take; ++k)
      w |= static_cast<std::uint64_t>(static_cast<unsigned char>(p[k])) << (8 * k);
    h = (h ^ w) * kMul;
    h ^= h >> 29;
    p += take;
    n -= take;
  }
  // Final mix: every input bit reaches the low bits the table uses.
  h ^= h >> 33;
  h *= 0xFF51AFD7ED558CCDull;
  return h ^ (h >> 33);
}

int TextCodes::find(std::string_view text) const {
  if (slots_.empty()) return 0;
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t s = hash(text) & mask;; s = (s + 1) & mask) {
    const int code = slots_[s];
    if (code == 0) return 0;
    if (same_text(texts_[static_cast<std::size_t>(code - 1)], text)) return code;
  }
}

int TextCodes::add(std::string_view text) {
  // The table is kept at most half full, so a probe always meets a free slot.
  if (2 * (texts_.size() + 1) > slots_.size()) grow();
  texts_.emplace_back(text);
  const int code = static_cast<int>(texts_.size());
  const std::size_t mask = slots_.size() - 1;
  std::size_t s = hash(text) & mask;
  while (slots_[s] != 0) s = (s + 1) & mask;
  slots_[s] = code;
  return code;
}

void TextCodes::grow() {
  slots_.assign(slots_.empty() ? 16 : 2 * slots_.size(), 0);
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t k = 0; k < texts_.size(); ++k) {
    std::size_t s = hash(texts_[k]) & mask;
    while (slots_[s] != 0) s = (s + 1) & mask;
    slots_[s] = static_cast<int>(k) + 1;
  }
}

}  // namespace vardel
