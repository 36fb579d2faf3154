// The quick reading of plain data files against the full free-form reader,
// and the numbers it gives against the free-form number rules.
#include <gtest/gtest.h>

#include <cstring>

#include "data/plain_scan.hpp"
#include "data/read_misdata.hpp"
#include "numerics/list_number.hpp"
#include "support/harness.hpp"

namespace vardel {
namespace {

using testing_support::Console;
using testing_support::stop_status;
using testing_support::WorkFolder;

struct Outcome {
  int status;
  std::string screen;
  Init state;
};

// Reads `data` as the learning sample of predictors a, b (numerical), k
// (categorical), class y and an excluded z.
Outcome read_sample(const std::string& data) {
  testing_support::fresh_run_state();
  init().outfile = fixed_text("out.txt", kFileNameLen);
  init().misslearn = 'y';
  WorkFolder folder;
  folder.write("d.dsc", "data.txt\nNA\nh\n1 a n\n2 b n\n3 k c\n4 y d\n5 z x\n");
  folder.write("data.txt", data);
  Console console("d.dsc\n\n");
  const int status = stop_status([] { read_misdata(); });
  return {status, console.screen(), init()};
}

bool same_bits(double a, double b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

// Cuts plain files into pieces of these sizes while it lives.
class PlainSizesScope {
 public:
  explicit PlainSizesScope(PlainSizes sizes) : old_(plain_sizes()) { plain_sizes() = sizes; }
  ~PlainSizesScope() { plain_sizes() = old_; }

 private:
  PlainSizes old_;
};

// Whole files; parts of one case each; and stretches of a few bytes, so that
// reads go on from one stretch into the next.
const PlainSizes kCuts[] = {{}, {1, 1}, {16, 7}};

void expect_same(const Outcome& a, const Outcome& b) {
  ASSERT_EQ(a.status, b.status);
  EXPECT_EQ(a.screen, b.screen);
  if (a.status != -1) return;
  ASSERT_EQ(a.state.xdata.size(), b.state.xdata.size());
  for (int i = 1; i <= a.state.xdata.size(); ++i)
    EXPECT_TRUE(same_bits(a.state.xdata(i), b.state.xdata(i))) << i;
  EXPECT_EQ(a.state.misind, b.state.misind);
  EXPECT_EQ(a.state.clabel, b.state.clabel);
  EXPECT_EQ(a.state.cdata, b.state.cdata);
  EXPECT_EQ(a.state.noc, b.state.noc);
  EXPECT_EQ(a.state.numcat, b.state.numcat);
  EXPECT_EQ(a.state.catlabel, b.state.catlabel);
}

// A plain file read in parts of every cut gives what the full reader gives
// for the same file (a star inside an excluded token sends it there).
void expect_cut_reads_like_full(const std::string& plain) {
  std::string full = plain;
  full.replace(full.find(" q"), 2, " q*r");
  const Outcome b = read_sample(full);
  for (const PlainSizes& cut : kCuts) {
    SCOPED_TRACE(cut.part_bytes);
    const PlainSizesScope scope(cut);
    expect_same(read_sample(plain), b);
  }
}

TEST(CaseReading, PlainFilesReadAsTheFullReaderReadsThem) {
  const std::string files[] = {
      "1 2 red A q\n\n3\t4 blue B q\r\n5 NA NA A q\n",
      "1\n2\nred\nA\nq\n  \n3 4 0 B q\n",           // a case over lines
      "1 2 red NA q\nNA 7 NA C q\n",                // missing label, "0"-less
      "1 2 NA A q\n3 4 NA B q\n",                   // a category never seen
      "1.5 -0 0 A q\n2e3 .5 NA B q\n1d2 +3 0 A q",  // odd numbers, no last line end
      "1 2 aaaaaaaaaaaaaaaaaaaaaaaZ A q\n3 4 aaaaaaaaaaaaaaaaaaaaaaaY B q\n",
      "1 2 red A q\n3 4 blue B q\n5\n",  // trailing incomplete case
      "1 2 red A q 9 9 red B q\n",       // two cases on a line
      "1 2 red A q\n3 x7 blue B q\n",    // not a number
  };
  for (const std::string& plain : files) {
    SCOPED_TRACE(plain);
    expect_cut_reads_like_full(plain);
  }
}

// Files of many cases cut into many parts: categories and classes met in a
// different order in each part, dropped cases, missing values, reads over
// several lines and faults late in the file.
TEST(CaseReading, PartsMergeInFileOrder) {
  std::string many;
  for (int i = 0; i < 60; ++i) {
    const std::string label =
        i % 11 == 4 ? "NA" : std::string("L").append(std::to_string(i * 7 % 5));
    const std::string cat =
        i % 9 == 2 ? "NA" : std::string("c").append(std::to_string(i * 5 % 13 / 2));
    const std::string b = i % 6 == 1 ? "NA" : std::to_string(i) + ".25";
    many +=
        std::to_string(-i) + (i % 8 == 3 ? "\n\n  " : " ") + b + " " + cat + " " + label + " q\n";
  }
  const std::string files[] = {
      many,
      many + "1 2 red A q 7\n",                    // not a multiple of the case width
      many + "x1 2 red A q\n3 4 red B q\n",        // not a number in the last part
      "x1 2 red A q\n" + many + "x2 2 red A q\n",  // ... in the first
      "\n\n" + many + "\n\n3 4\n",                 // trailing incomplete case
  };
  for (const std::string& plain : files) expect_cut_reads_like_full(plain);
}

TEST(CaseReading, NumbersAreThoseOfTheFreeFormRules) {
  const char* tokens[] = {"0.1",
                          "-0",
                          "123456789012345",
                          "1234567890123456",
                          "0.30000000000000004",
                          "1e5",
                          "1d2",
                          "+3",
                          "1.0+3",
                          ".5",
                          "5.",
                          "-.25",
                          "1e400",
                          "1e-400",
                          "4.9e-324",
                          "1.7976931348623157e308",
                          "nan",
                          "-inf",
                          "12345678901234567890123"};
  std::string data;
  for (const char* t : tokens) data += std::string(t) + " 1 red A q\n";
  const Outcome out = read_sample(data);
  ASSERT_EQ(out.status, -1) << out.screen;
  for (int i = 1; i <= static_cast<int>(std::size(tokens)); ++i) {
    double expected = 0.0;
    ASSERT_TRUE(parse_list_real(std::string(tokens[i - 1]).substr(0, kNameLen), expected));
    EXPECT_TRUE(same_bits(out.state.xdata(i, 1), expected)) << tokens[i - 1];
  }
}

}  // namespace
}  // namespace vardel
