// What the fixtures cannot show: the token and line reported on failure, rules
// chosen where the Fortran runtime that made the fixtures reads oddly, and the
// read patterns of the data-file and prompt callers.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "numerics/list_reader.hpp"

namespace vardel {
namespace {

// Reads (integer, 21-char text, 3-char text) records until a read fails.
ReadResult read_records_until_failure(const std::string& input, int& records) {
  std::istringstream file(input);
  ListReader in(file);
  int code = 0;
  std::string name, type;
  records = 0;
  for (;;) {
    ReadResult r = in.read({code, text(name, 21), text(type, 3)});
    if (!r) return r;
    ++records;
  }
}

TEST(ListReader, FailureCarriesTokenAndLine) {
  struct Row {
    const char* input;
    ReadStatus status;
    const char* token;
    long line;
    int records;
  };
  const Row rows[] = {
      {"1 a n\n2 b n\nx c n\n", ReadStatus::bad_value, "x", 3, 2},
      {"1 a n\n\n2 b n\n3.5 c n\n", ReadStatus::bad_value, "3.5", 4, 2},
      {"1 a n\n2 b n\n", ReadStatus::end_of_file, "", 2, 2},
      {"1 a n\n2 b\n", ReadStatus::end_of_file, "", 2, 1},
      {"", ReadStatus::end_of_file, "", 0, 0},
      {"1 'ab\ncd'ef n\n", ReadStatus::bad_value, "abcdef", 1, 0},
      {"0*5 a n\n", ReadStatus::bad_value, "0*5", 1, 0},
      {"1 a n\n2*7 n\n", ReadStatus::bad_value, "7", 2, 1},  // one value for two types
  };
  for (const Row& row : rows) {
    int records = -1;
    const ReadResult r = read_records_until_failure(row.input, records);
    EXPECT_EQ(r.status, row.status) << row.input;
    EXPECT_EQ(r.token, row.token) << row.input;
    EXPECT_EQ(r.line, row.line) << row.input;
    EXPECT_EQ(records, row.records) << row.input;
  }
}

TEST(ListReader, ChosenRulesForOddInputs) {
  std::string a = "?", b = "?", c = "?";
  // A semicolon is an ordinary character, not a separator.
  ASSERT_TRUE(read_list("a;b c;;d e", {text(a, 4), text(b, 4), text(c, 4)}));
  EXPECT_EQ(a + b + c, "a;b c;;de   ");

  // A slash that opens a continuation line ends the statement at once.
  int i = 0, j = -1, k = -1;
  std::istringstream slash_line("1\n/5 6\n");
  ListReader in(slash_line);
  ASSERT_TRUE(in.read({i, j, k}));
  EXPECT_EQ(i, 1);
  EXPECT_EQ(j, -1);
  EXPECT_EQ(k, -1);

  // A last line without a line end reads as if it had one, also after a
  // slash or a trailing r*.
  for (const char* input : {"1 /", "1 2*"}) {
    std::istringstream file(input);
    ListReader last(file);
    j = k = -1;
    EXPECT_TRUE(last.read({i, j, k})) << input;
    EXPECT_EQ(j, -1) << input;
  }

  // Reading on after the end of the file finds the end again, until a rewind.
  std::istringstream file("7\n");
  ListReader again(file);
  ASSERT_TRUE(again.read({i}));
  EXPECT_EQ(again.read({i}).status, ReadStatus::end_of_file);
  EXPECT_EQ(again.read({i}).status, ReadStatus::end_of_file);
  EXPECT_EQ(again.skip_record().status, ReadStatus::end_of_file);
  again.rewind();
  i = 0;
  ASSERT_TRUE(again.read({i}));
  EXPECT_EQ(i, 7);
  EXPECT_EQ(again.line(), 1);
}

TEST(ListReader, TextTargetsHoldTheirDeclaredLength) {
  // Also when the read leaves them unchanged.
  std::string longer = "longer than three", empty;
  ASSERT_TRUE(read_list(",,", {text(longer, 3), text(empty, 2)}));
  EXPECT_EQ(longer, "lon");
  EXPECT_EQ(empty, "  ");
}

TEST(ListReader, DataCasesAndTheSurplusTokenCheck) {
  // Two variables, three cases, one case per read; cases may span lines and a
  // read always starts on a new line.
  const std::string data = "a 1\nb\n2\nc 3 ignored\n";
  std::vector<std::string> values(2);
  std::vector<ReadTarget> targets{text(values[0], 21), text(values[1], 21)};
  std::istringstream file(data);
  ListReader in(file);
  std::string seen;
  while (in.read(targets)) seen += values[0].substr(0, 1) + values[1].substr(0, 1);
  EXPECT_EQ(seen, "a1b2c3");

  // nvar * nobs + 1 single characters: that read succeeds only if there are
  // more tokens than whole cases.
  auto surplus = [](const std::string& input, int count) {
    std::vector<std::string> chars(static_cast<std::size_t>(count));
    std::vector<ReadTarget> t;
    for (std::string& c : chars) t.push_back(text(c, 1));
    std::istringstream f(input);
    ListReader r(f);
    return static_cast<bool>(r.read(t));
  };
  EXPECT_FALSE(surplus("a 1\nb 2\nc 3\n", 7));
  EXPECT_TRUE(surplus("a 1\nb 2\nc 3 d\n", 7));
}

TEST(ListReader, RecordsAreWholeLines) {
  std::istringstream file("  name with  blanks, and / slash  \nrest\n");
  ListReader in(file);
  std::string line;
  ASSERT_TRUE(in.read_record(line));
  EXPECT_EQ(line, "  name with  blanks, and / slash  ");
  ASSERT_TRUE(in.read_record(line));
  EXPECT_EQ(line, "rest");
  EXPECT_EQ(in.read_record(line).status, ReadStatus::end_of_file);
}

TEST(ReadIntField, BadFieldIsReportedWhole) {
  int v = 42;
  const ReadResult r = read_int_field("  3.5     ", v);
  EXPECT_EQ(r.status, ReadStatus::bad_value);
  EXPECT_EQ(r.token, "  3.5     ");
  EXPECT_EQ(v, 42);
}

}  // namespace
}  // namespace vardel
