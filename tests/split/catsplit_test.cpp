#include "split/catsplit.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "split/guards.hpp"

namespace vardel {
namespace {

struct CatsplitCase {
  const char* what;
  std::vector<double> a, cutpt;
  std::vector<int> ncutcat, cutcat1;
};

// Codes come out by ascending coordinate, subnode after subnode; equal
// coordinates keep the order indexx gives them (ascending code below 16
// keys), and a coordinate equal to a cut point goes below it.
TEST(Catsplit, CountsAndOrder) {
  const std::vector<CatsplitCase> cases = {
      {"two subnodes", {0.3, -0.2, 0.0, 0.5}, {0.1}, {2, 2}, {2, 3, 1, 4}},
      {"ties at the cut points",
       {0.2, -0.1, 0.2, -0.1, 0.0},
       {-0.1, 0.2},
       {2, 3, 0},
       {2, 4, 5, 1, 3}},
      {"guards around a real point",
       {1.0, -1.0, 0.0},
       {kLowGuard, 0.0, kHighGuard},
       {0, 2, 1, 0},
       {2, 3, 1}},
      {"high guard takes all", {0.4, -0.4}, {kHighGuard}, {2, 0}, {2, 1}},
      {"low guard takes none", {0.4, -0.4}, {kLowGuard}, {0, 2}, {2, 1}},
      {"all coordinates zero", {0.0, 0.0, 0.0}, {-0.5, 0.5}, {0, 3, 0}, {1, 2, 3}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    FArray<int> ncutcat(1, 7), cutcat1(9, 7);
    catsplit(c.a, c.cutpt, ncutcat, cutcat1);
    EXPECT_EQ(ncutcat.vector(), c.ncutcat);
    EXPECT_EQ(cutcat1.vector(), c.cutcat1);
  }
}

}  // namespace
}  // namespace vardel
