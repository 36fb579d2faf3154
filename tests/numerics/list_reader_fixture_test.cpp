// The reader against what the Fortran programs in
// tests/fixtures/listread read from the same inputs (reads.f90 on cases.txt,
// answers.f90 on answers.txt).
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "list_ops.hpp"
#include "numerics/list_reader.hpp"

namespace vardel {
namespace {

const std::string kDir = std::string(VARDEL_FIXTURE_DIR) + "/listread/";

std::vector<std::string> lines_of(const std::string& path) {
  std::ifstream f(path, std::ios::binary);
  EXPECT_TRUE(f) << path;
  std::vector<std::string> lines;
  for (std::string line; std::getline(f, line);) lines.push_back(line);
  return lines;
}

std::string unescape(const std::string& s) {
  std::string out;
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] != '\\' || i + 1 == s.size()) {
      out += s[i];
      continue;
    }
    const char c = s[++i];
    out += c == 'n' ? '\n' : c == 'r' ? '\r' : c == 't' ? '\t' : c;
  }
  return out;
}

struct Case {
  std::string name;
  std::vector<std::string> ops;
  std::string input;
};

std::vector<Case> load_cases() {
  std::vector<Case> cases;
  for (const std::string& line : lines_of(kDir + "cases.txt")) {
    if (line.empty() || line[0] == '#') continue;
    const std::size_t a = line.find(" | ");
    const std::size_t b = line.find(" | ", a + 3);
    Case c;
    c.name = line.substr(0, a);
    std::istringstream ops(line.substr(a + 3, b == std::string::npos ? b : b - a - 3));
    for (std::string op; ops >> op;) c.ops.push_back(op);
    if (b != std::string::npos) c.input = unescape(line.substr(b + 3));
    cases.push_back(c);
  }
  return cases;
}

// expected.txt: "case NAME" followed by that case's output lines.
std::map<std::string, std::string> load_expected() {
  std::map<std::string, std::string> expected;
  std::string* current = nullptr;
  for (const std::string& line : lines_of(kDir + "expected.txt")) {
    if (line.rfind("case ", 0) == 0) {
      current = &expected[line.substr(5)];
    } else if (current) {
      *current += line + '\n';
    }
  }
  return expected;
}

TEST(ListReaderFixture, MatchesFortranReads) {
  const std::vector<Case> cases = load_cases();
  const std::map<std::string, std::string> expected = load_expected();
  ASSERT_GT(cases.size(), 100u);
  for (const Case& c : cases) {
    std::istringstream file(c.input);
    ListReader in(file);
    ASSERT_TRUE(expected.count(c.name)) << c.name;
    EXPECT_EQ(testing_support::run_ops(in, c.ops), expected.at(c.name)) << "case " << c.name;
  }
}

TEST(ListReaderFixture, MatchesFortranAnswers) {
  const std::vector<std::string> answers = lines_of(kDir + "answers.txt");
  const std::vector<std::string> expected = lines_of(kDir + "answers_expected.txt");
  ASSERT_EQ(answers.size(), expected.size());
  for (std::size_t k = 0; k < answers.size(); ++k) {
    const std::string& line = answers[k];
    double d = -1.25;
    int i = -1111, g = -1111;
    const ReadResult rd = read_list(line, {d});
    const ReadResult ri = read_list(line, {i});
    const ReadResult rg = read_int_field(std::string_view(line).substr(0, 10), g);
    std::ostringstream got;
    got << "real " << testing_support::status_word(rd) << ' ' << std::bit_cast<std::int64_t>(d)
        << " int " << testing_support::status_word(ri) << ' ' << i << " g10 "
        << testing_support::status_word(rg) << ' ' << g;
    EXPECT_EQ(got.str(), expected[k]) << "answer [" << line << "]";
  }
}

}  // namespace
}  // namespace vardel
