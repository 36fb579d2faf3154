// Formatted and list-directed output compared byte for byte with reference
// output kept under fixtures/format (see regenerate.sh there).
#include <bit>
#include <cstdint>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "numerics/format.hpp"

namespace vardel {
namespace {

std::vector<std::string> fixture_lines(const char* name) {
  std::ifstream in(std::string(VARDEL_FIXTURE_DIR) + "/format/" + name);
  EXPECT_TRUE(in) << "cannot open fixture " << name;
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// Splits "@id" marked fixtures into (id, the lines that follow, each ended
// by '\n'), in file order.
std::vector<std::pair<std::string, std::string>> fixture_cases(const char* name) {
  std::vector<std::pair<std::string, std::string>> cases;
  for (const auto& line : fixture_lines(name)) {
    if (!line.empty() && line[0] == '@') {
      cases.emplace_back(line.substr(1), "");
    } else if (!cases.empty()) {
      cases.back().second += line + '\n';
    }
  }
  return cases;
}

// A single value written as "<kind>:<value>" or "<kind> <value>": D and S
// carry the bits in hex, I and L the decimal value.
FmtItem single_item(char kind, const std::string& value) {
  switch (kind) {
    case 'D':
      return std::bit_cast<double>(std::stoull(value, nullptr, 16));
    case 'S':
      return std::bit_cast<float>(static_cast<std::uint32_t>(std::stoul(value, nullptr, 16)));
    case 'I':
      return static_cast<int>(std::stol(value));
    default:
      return static_cast<long>(std::stoll(value));
  }
}

TEST(FormatFixture, SingleDescriptorsOnSingleValues) {
  const auto lines = fixture_lines("numeric.txt");
  ASSERT_GT(lines.size(), 2000u);
  int failures = 0;
  for (const auto& line : lines) {
    // <kind> <descriptor> <value> [<field>]
    std::istringstream head(line);
    char kind;
    std::string desc, value;
    head >> kind >> desc >> value;
    const auto open = line.find('[');
    const std::string expected = line.substr(open + 1, line.size() - open - 2);
    const std::string got = format("(" + desc + ")", {single_item(kind, value)}, Advance::no);
    if (got != expected && ++failures <= 20) ADD_FAILURE() << line << "\n  got [" << got << "]";
  }
  EXPECT_EQ(failures, 0);
}

struct RecordCase {
  const char* id;
  const char* fmt;
  std::vector<FmtItem> items;
  Advance adv = Advance::yes;
};

std::vector<FmtItem> counting(int n) {
  std::vector<FmtItem> items;
  for (int i = 1; i <= n; ++i) items.emplace_back(i);
  return items;
}

TEST(FormatFixture, WholeWrites) {
  static const std::string age = fixed_text("AGE", 21);
  const char* prompt = "(2x,a,1x,'([',a,':',a,'],',1x,'<cr>=',a,'):',1x)";
  const std::vector<RecordCase> cases = {
      {"a_i7", "(a,i7)", {"Cases:", 1234}},
      {"i7_f9", "(i7,4x,f9.4,i14)", {17, 3.14159, 123456789}},
      {"pairs", "(2(a7,g10.3,a8,g10.3))", {"a", 1.5, "bb", -0.05, "ccc", 1234.5, "dddd", 1e10}},
      {"pairs_revert",
       "(2(a7,g10.3,a8,g10.3))",
       {"a", 1.0, "b", 2.0, "c", 3.0, "d", 4.0, "e", 5.0, "f", 6.0}},
      {"a12_3f", "(3x,a12,1x,3f9.3)", {"name", 1.0, -2.5, 1234.5678}},
      {"a12_name", "(3x,a12,1x,3f9.3)", {age, 0.5, 0.0, -0.0001}},
      {"prompt", prompt, {"Depth", "1", "20", "5"}, Advance::no},
      {"a_16x", "(a,16x,f5.2,a)", {"Rate", 0.25, "%"}},
      {"slash_a", "(/,a)", {"Title"}},
      {"slash_a_none", "(/,a)", {}},
      {"i1", "(i1)", {7}},
      {"i1_over", "(i1)", {12}},
      {"i10", "(i10)", {-5}},
      {"a_i14", "(a,i14)", {"Total", 9876543210L}},
      {"runtime_12a", "(   12A)", {"ab", "cd", "ef"}},
      {"runtime_2a", "(    2A)", {"ab", "cd", "ef", "gh", "ij"}},
      {"upper", "(A,I5,F8.3)", {"x", 5, 2.5}},
      {"quotes", R"(('it''s',1x,"say ""hi""",a))", {"z"}},
      {"nested_revert", "(i2,2(i3,3(i1)),i4)", counting(18)},
      {"plain_revert", "(a,i7)", {"a", 1, "b", 2, "c"}},
      {"stop_at_a", "(a,i5,a)", {"x"}},
      {"stop_after_lit", "(i3,' items',i3,' left')", {5}},
      {"colon_one", "(i3,:,' and',i3)", {5}},
      {"colon_two", "(i3,:,' and',i3)", {5, 6}},
      {"colon_group", "(3(i2,:,','))", {1, 2, 3}},
      {"slash_count", "(a,2/,a)", {"p", "q"}},
      {"trailing_x", "(a,3x)", {"q"}},
      {"literal_only", "('Header line')", {}},
      {"value_first_none", "(i3)", {}},
      {"lit_then_none", "('x=',i3)", {}},
      {"a_widths", "(a3,a8,a)", {"abcdef", "xy", "tail  "}},
      {"repeat_i", "(3i4)", counting(7)},
      {"nested_groups", "(2(a,2(i2)),a)", {"a", 1, 2, "b", 3, 4, "c"}},
      {"g_row", "(1x,4g12.4)", {0.0, 123.456, -1e-5, 99999.0}},
      {"float_items", "(f10.4,e12.4,g12.4)", {0.1f, 1e30f, 0.3f}},
      {"i_min", "(2x,i5.3,i4.0,i2.2)", {7, 0, 3}},
      {"x_before_slash", "(a,5x,/,a)", {"p", "q"}},
      {"noadv_records", "(a,/,a,2x)", {"one", "two"}, Advance::no},
      {"blanks_case", "( 2 ( I 3 , 1 X ) , f 6 . 2 )", {1, 2, 0.5}},
  };
  std::map<std::string, std::string> expected;
  for (auto& [id, text] : fixture_cases("records.txt")) expected[id] = text;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.id);
    ASSERT_TRUE(expected.count(c.id));
    std::string got = format(c.fmt, c.items, c.adv);
    // The reference closes a non-advancing write with "|".
    if (c.adv == Advance::no) got += "|\n";
    EXPECT_EQ(got, expected.at(c.id));
  }
}

TEST(FormatFixture, ListDirected) {
  static const std::string c5 = fixed_text("ab", 5);
  static const std::string name = fixed_text("AGE", 21);
  const std::map<std::string, std::vector<FmtItem>> named = {
      {"mixed", {"abc", "def", 5, "x", 1.5, c5, c5, 7}},
      {"empty", {}},
      {"text_only", {c5}},
      {"literal", {" Value"}},
      {"numbers", {1, 2.5, 3, 0.5f, 4L}},
      {"label_count", {"Number of cases:", 150}},
      {"name_value", {name, 0.125, name}},
  };
  int singles = 0;
  for (const auto& [id, text] : fixture_cases("listdir.txt")) {
    if (id == "end") continue;
    SCOPED_TRACE(id);
    if (id.size() > 2 && id[1] == ':') {
      ++singles;
      EXPECT_EQ(list_directed({single_item(id[0], id.substr(2))}), text);
    } else {
      ASSERT_TRUE(named.count(id));
      EXPECT_EQ(list_directed(named.at(id)), text);
    }
  }
  EXPECT_GT(singles, 50);
}

}  // namespace
}  // namespace vardel
