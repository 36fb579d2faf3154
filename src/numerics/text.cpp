// Fixed-length text helpers: cut/pad, trim, left-adjust, blank-padded equality.
#include "numerics/text.hpp"

#include <utility>

namespace vardel {

std::string fixed_text(std::string_view s, std::size_t len) {
  std::string out(s.substr(0, len));
  out.resize(len, ' ');
  return out;
}

std::string_view trim(std::string_view s) {
  std::size_t n = s.size();
  while (n > 0 && s[n - 1] == ' ') --n;
  return s.substr(0, n);
}

std::string adjustl(std::string_view s) {
  std::size_t lead = 0;
  while (lead < s.size() && s[lead] == ' ') ++lead;
  std::string out(s.substr(lead));
  out.append(lead, ' ');
  return out;
}

std::string join_text(std::initializer_list<std::string_view> pieces) {
  std::size_t size = 0;
  for (std::string_view piece : pieces) size += piece.size();
  std::string text;
  text.reserve(size);
  for (std::string_view piece : pieces) text.append(piece);
  return text;
}

bool text_equal(std::string_view a, std::string_view b) {
  if (a.size() < b.size()) std::swap(a, b);
  // a is the longer: its tail beyond b must be blank.
  if (a.substr(0, b.size()) != b) return false;
  for (std::size_t i = b.size(); i < a.size(); ++i)
    if (a[i] != ' ') return false;
  return true;
}

}  // namespace vardel
