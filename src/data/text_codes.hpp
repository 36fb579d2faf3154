// TextCodes: texts numbered 1, 2, ... in the order they were first added.
//
// find() gives a text's code, 0 if it has none; add() gives a new text the
// next code. The lookup is an open-addressing table over a cheap hash of the
// bytes, meant for the short tokens of data files (categories and class
// labels), looked up once per token.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vardel {

class TextCodes {
 public:
  int find(std::string_view text) const;
  // Adds a text not yet present; returns its code.
  int add(std::string_view text);
  int find_or_add(std::string_view text) {
    const int code = find(text);
    return code > 0 ? code : add(text);
  }
  int size() const { return static_cast<int>(texts_.size()); }
  // Texts by code - 1.
  const std::vector<std::string>& texts() const { return texts_; }

 private:
  static std::uint64_t hash(std::string_view text);
  void grow();

  std::vector<std::string> texts_;
  std::vector<int> slots_;  // code, 0 for a free slot; size a power of two
};

}  // namespace vardel
