#include "report/string_sort.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vardel {
namespace {

TEST(StringSort, AscendingByBlankPaddedTextAndStable) {
  // "b" and "b  " are equal once padded and keep their order; so do texts
  // that differ only past the width. A blank sorts before any printable
  // character, so "ab" comes before "ab!".
  std::vector<std::string> texts{"b  ", "ab!", "zzzzX", "b", "ab", "zzzzA", "B"};
  string_sort(texts, 4);
  EXPECT_EQ(texts, (std::vector<std::string>{"B", "ab", "ab!", "b  ", "b", "zzzzX", "zzzzA"}));

  std::vector<std::string> one{"x"};
  string_sort(one, 15);
  EXPECT_EQ(one, std::vector<std::string>{"x"});
}

}  // namespace
}  // namespace vardel
