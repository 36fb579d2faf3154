#include "run/prompting.hpp"

#include <gtest/gtest.h>

#include "support/harness.hpp"

namespace vardel {
namespace {

using testing_support::Console;
using testing_support::stop_status;

constexpr const char* kChoice = "  Input your choice ([0:2], <cr>=1): ";

struct IntegerCase {
  const char* answers;
  int expected;
  const char* screen;
};

TEST(IntegerPrompt, DefaultsRefusalsAndBounds) {
  const std::string q = kChoice;
  const IntegerCase cases[] = {
      {"\n", 1, kChoice},
      {"    \n", 1, kChoice},
      {"2\n", 2, kChoice},
      {"  0  \n", 0, kChoice},
      // Refused answers repeat the question with the old default.
      {"3\n2\n", 2,
       "  Input your choice ([0:2], <cr>=1): Error, value out of range\n"
       "  Input your choice ([0:2], <cr>=1): "},
      {"-1\n\n", 1,
       "  Input your choice ([0:2], <cr>=1): Error, value out of range\n"
       "  Input your choice ([0:2], <cr>=1): "},
      {"3.5\nabc\n1\n", 1,
       "  Input your choice ([0:2], <cr>=1): Error, not an integer number\n"
       "  Input your choice ([0:2], <cr>=1): Error, not an integer number\n"
       "  Input your choice ([0:2], <cr>=1): "},
  };
  for (const IntegerCase& c : cases) {
    SCOPED_TRACE(c.answers);
    Console console(c.answers);
    int var = 1;
    integer_prompt("Input your choice", var, 0, 2);
    EXPECT_EQ(var, c.expected);
    EXPECT_EQ(console.screen(), c.screen);
  }
}

TEST(IntegerPrompt, OnlyTheFirstTenCharactersCountAndOneBoundMayBeAbsent) {
  Console console("12345678901\n");
  int var = 10;
  integer_prompt("  Input number of folds for cross-validation  ", var, 2);
  EXPECT_EQ(var, 1234567890);
  EXPECT_EQ(console.screen(), "  Input number of folds for cross-validation ([2:], <cr>=10): ");
}

TEST(DoublePrompt, ShowsTwoDecimalsAndReadsFreeForm) {
  {
    Console console("0.1 junk\n");
    double alpha = 0.05;
    double_prompt("Enter alpha value for variable selection", alpha, 0.0, 1.0);
    EXPECT_EQ(alpha, 0.1);
    EXPECT_EQ(console.screen(),
              "  Enter alpha value for variable selection ([0.00:1.00], <cr>=0.05): ");
  }
  {
    Console console("1.5\nx\n\n");
    double alpha = 5.0;  // an out-of-range default is still taken on an empty line
    double_prompt("Enter alpha", alpha, 0.0, 1.0);
    EXPECT_EQ(alpha, 5.0);
    EXPECT_NE(console.screen().find("Error, value out of range\n"), std::string::npos);
    EXPECT_NE(console.screen().find("Error, not a real number\n"), std::string::npos);
  }
}

TEST(LogicalPrompt, AcceptsTheUsualWords) {
  Console console("maybe\nsure\n on\n");
  bool flag = false;
  logical_prompt("Go on?", flag);
  // Unknown words are refused; " on" is taken.
  EXPECT_TRUE(flag);
  EXPECT_EQ(console.screen(),
            "  Go on? (<cr>=no): Error, answer y(es)/t(rue)/on or n(o)/f(alse)/off\n"
            "  Go on? (<cr>=no): Error, answer y(es)/t(rue)/on or n(o)/f(alse)/off\n"
            "  Go on? (<cr>=no): ");
}

TEST(Prompts, EndOfInputEndsTheRunWithAnErrorStatus) {
  Console console("");
  int var = 1;
  EXPECT_EQ(stop_status([&] { integer_prompt("Input your choice", var, 0, 2); }), 2);
  EXPECT_NE(console.screen().find("Standard input ended"), std::string::npos);
}

}  // namespace
}  // namespace vardel
