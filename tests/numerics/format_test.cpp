// Formatter behaviour not covered by the reference output: where writing
// stops when the items run out, faults in formats and item lists, the parse
// cache, and the fixed-length text helpers.
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "numerics/format.hpp"

namespace vardel {
namespace {

struct StopCase {
  const char* fmt;
  std::vector<FmtItem> items;
  Advance adv;
  const char* expected;
};

TEST(Format, WritingStopsAtTheNextValueDescriptor) {
  const std::vector<StopCase> cases = {
      // Literals before the next value descriptor are written, later ones not.
      {"('a=',i2,' b=',i2,' end')", {1}, Advance::yes, "a= 1 b=\n"},
      // No value descriptor left: the format runs to its end.
      {"(i2,' end',2x,'.')", {1}, Advance::yes, " 1 end  .\n"},
      {"(i2,:,' end')", {1}, Advance::yes, " 1\n"},
      {"(2x,i3,'x')", {}, Advance::yes, "\n"},
      // A prompt keeps its trailing blanks and gets no line end.
      {"('Answer?',1x)", {}, Advance::no, "Answer? "},
      {"(a,i3,2x)", {"n", 4}, Advance::no, "n  4  "},
      // Reversion begins a new record only if items remain.
      {"(a,i2)", {"p", 1}, Advance::yes, "p 1\n"},
      {"(a,i2)", {"p", 1, "q"}, Advance::yes, "p 1\nq\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.fmt);
    EXPECT_EQ(format(c.fmt, c.items, c.adv), c.expected);
  }
}

TEST(Format, MalformedFormatsThrowNamingTheFormat) {
  const char* bad[] = {"",          "a,i5",     "(a",       "(a,)",        "(,a)",
                       "(i)",       "(f5)",     "(f5.)",    "(e10.0)",     "(q5)",
                       "('abc)",    "(a)x",     "(0a)",     "(2'x')",      "(i5 i3)",
                       "(e10.3e3)", "(a,(i2)",  "(2:)",     "(a0)",        "(f0.2)",
                       "(a,,i2)",   "(2(a)i2)", "(es10.3)", "(i99999999)", "(f120.101)"};
  for (const char* fmt : bad) {
    SCOPED_TRACE(fmt);
    try {
      (void)format(fmt, {1});
      ADD_FAILURE() << "no exception";
    } catch (const std::logic_error& e) {
      EXPECT_NE(std::string(e.what()).find(std::string("\"") + fmt + "\""), std::string::npos)
          << e.what();
    }
  }
}

TEST(Format, OptionalCommasAroundSlashColonAndLiterals) {
  EXPECT_EQ(format("('n='i2/'m='i2)", {1, 2}), "n= 1\nm= 2\n");
  EXPECT_EQ(format("(i2:'x')", {1}), " 1\n");
}

TEST(Format, ItemsOfTheWrongKindThrow) {
  EXPECT_THROW((void)format("(i5)", {2.5}), std::logic_error);
  EXPECT_THROW((void)format("(f5.1)", {2}), std::logic_error);
  EXPECT_THROW((void)format("(g10.0)", {2.5}), std::logic_error);
  EXPECT_THROW((void)format("(a)", {2}), std::logic_error);
  EXPECT_THROW((void)format("(i5)", {"2"}), std::logic_error);
  // Items left over that no descriptor could ever take.
  EXPECT_THROW((void)format("('x')", {1}), std::logic_error);
  EXPECT_THROW((void)format("(i2,2('x'))", {1, 2}), std::logic_error);
}

TEST(Format, GEditsAnIntegerAsIOfTheSameWidth) {
  // As gfortran prints integers under g10.0 and g10.3.
  EXPECT_EQ(format("(a,g10.0,a)", {"[", 0, "]"}), "[         0]\n");
  EXPECT_EQ(format("(a,g10.0,a)", {"[", -25, "]"}), "[       -25]\n");
  EXPECT_EQ(format("(a,g10.3,a)", {"[", 150L, "]"}), "[       150]\n");
}

TEST(Format, CacheGivesTheSameTextAcrossEvictions) {
  // More distinct run-time formats than the cache keeps, twice over.
  for (int pass = 0; pass < 2; ++pass) {
    for (int w = 1; w <= 600; ++w) {
      const std::string fmt = format("(a,i5,a)", {"(", w, "x,i1)"}, Advance::no);
      ASSERT_EQ(format(fmt, {7}), std::string(static_cast<std::size_t>(w), ' ') + "7\n") << fmt;
    }
  }
}

TEST(Format, StreamWritersMatchTheStringForms) {
  std::ostringstream out;
  const std::vector<FmtItem> items = {"k", 3};
  write_fmt(out, "(a,i3)", {"k", 3}, Advance::no);
  write_fmt(out, "(a,i3)", items);
  write_list(out, {"k", 3});
  write_list(out, items);
  const std::string list = " k           3\n";
  EXPECT_EQ(out.str(), "k  3k  3\n" + list + list);
}

TEST(Text, FixedLengthHelpers) {
  EXPECT_EQ(fixed_text("AGE", 5), "AGE  ");
  EXPECT_EQ(fixed_text("CATEGORY", 3), "CAT");
  EXPECT_EQ(fixed_text("", 2), "  ");
  EXPECT_EQ(trim("  ab c  "), "  ab c");
  EXPECT_EQ(trim("   "), "");
  EXPECT_EQ(adjustl("  ab c "), "ab c   ");
  EXPECT_EQ(adjustl("   "), "   ");
  EXPECT_EQ(adjustl("ab"), "ab");

  struct EqualCase {
    const char* a;
    const char* b;
    bool equal;
  };
  const EqualCase cases[] = {
      {"AGE", "AGE   ", true}, {"AGE   ", "AGE", true}, {"", "   ", true},
      {"AGE", "AGEX", false},  {"AGEX", "AGE", false},  {" AGE", "AGE", false},
      {"AGE", "AGE\t", false}, {"", "", true},
  };
  for (const auto& c : cases) EXPECT_EQ(text_equal(c.a, c.b), c.equal) << c.a << "|" << c.b;
}

}  // namespace
}  // namespace vardel
