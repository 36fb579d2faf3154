// The count of plain files, whole or cut into stretches counted at once, and
// the table of texts by code.
#include "data/plain_scan.hpp"

#include <gtest/gtest.h>

#include <sstream>

#include "data/text_codes.hpp"

namespace vardel {
namespace {

TEST(PlainScan, CountsAreTheSameHoweverTheFileIsCut) {
  struct Case {
    std::string text;
    int width;
    long long cases, tokens;
    long lines;
  };
  const Case cases[] = {
      {"", 3, 0, 0, 0},
      {"a b c\nd e f\n", 3, 2, 6, 2},
      {"a b c d\n\n\ne f g", 3, 2, 7, 4},       // dropped rest, blank lines, no last line end
      {"a\nb\nc\nd e\r\nf g h\n", 3, 2, 8, 5},  // reads over line ends, CRLF
      {"a b\n c d e f\n  \t\ng h i\nj\n", 2, 3, 10, 5},
      {"a b c\n\r", 3, 1, 3, 2},  // a last line of a carriage return
      {"abcdefghijklmnopqrstuvwxyz 1 2\n", 3, 1, 3, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    for (long long segment : {0LL, 1LL, 2LL, 5LL}) {
      std::istringstream in(c.text);
      PlainScan scan(in, PlainSizes{1, segment});
      PlainCount count;
      ASSERT_TRUE(scan.count(c.width, count));
      EXPECT_EQ(count.cases, c.cases) << segment;
      EXPECT_EQ(count.tokens, c.tokens) << segment;
      EXPECT_EQ(count.lines, c.lines) << segment;
      // With parts of a byte every read starts a part.
      EXPECT_EQ(static_cast<long long>(count.parts()), c.cases) << segment;
    }
  }
  for (const char* special : {"a b,c\n", "a\nb\n'c'\n", "a b c\nd e f\n1*2\n", "a / b\n"}) {
    std::istringstream in(special);
    PlainCount count;
    EXPECT_FALSE(PlainScan(in, PlainSizes{1, 1}).count(3, count)) << special;
  }
}

TEST(TextCodes, CodesFollowFirstAdditionThroughGrowth) {
  TextCodes codes;
  EXPECT_EQ(codes.find("x"), 0);
  // Texts alike but for one late byte, past the first eight.
  std::vector<std::string> texts;
  for (int i = 0; i < 100; ++i) texts.push_back("level_long_" + std::to_string(i));
  texts.push_back("");
  for (std::size_t i = 0; i < texts.size(); ++i)
    EXPECT_EQ(codes.find_or_add(texts[i]), static_cast<int>(i) + 1);
  for (std::size_t i = 0; i < texts.size(); ++i)
    EXPECT_EQ(codes.find(texts[i]), static_cast<int>(i) + 1);
  EXPECT_EQ(codes.find("level_long_100"), 0);
  EXPECT_EQ(codes.find("level_long_1 "), 0);
  EXPECT_EQ(codes.texts(), texts);
}

}  // namespace
}  // namespace vardel
