#include "prune/test_prune.hpp"

#include <cmath>
#include <fstream>
#include <limits>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "numerics/farray.hpp"
#include "numerics/format.hpp"
#include "prune/cv_costs.hpp"
#include "prune/cv_table.hpp"
#include "prune/pour_test.hpp"
#include "prune/prune_arrays.hpp"
#include "prune/replay.hpp"
#include "run/init.hpp"

namespace vardel {
namespace {

// A first pruning step with a cost-complexity below this costs nothing.
constexpr double kEps = 2.220446049250313e-16;
// Margin by which the largest tree's cost is raised above subtree 1's when
// the first step is free: single-precision 0.01, widened to double.
constexpr double kLargestPenalty = 0.009999999776482582;

}  // namespace

TestCost pour_test_prune() {
  Init& in = init();
  FArray<int> q(in.nclass, in.nclass, 0);
  switch (in.splittype) {
    case 3:
      throw std::logic_error("pour_test_prune: no pour for bivariate node models (split type 3)");
    default:
      pour_test(q, in.xtest, in.ytest.span(), in.misindtest, in.ntest);
  }
  return test_cost(q, in.ntest);
}

void test_prune() {
  Init& in = init();
  const PruneArrays& pa = prune_arrays();
  const int nsub = pa.nsubtrees;
  const FView<const int> pseq0{std::span<const int>(pa.pseq0)};
  const FView<const int> nomit{std::span<const int>(pa.nomit)};

  // est[s]: test cost and variance of subtree s.
  std::vector<TestCost> est(static_cast<std::size_t>(nsub + 1));
  replay_subtree(0);
  est[0] = pour_test_prune();
  TestCost best = est[0];
  TreeChoice choice;

  int e = 1;
  for (int k = 1; k <= nsub; ++k) {
    for (int r = 0; r <= nomit(k); ++r) {
      // Entries can outrun the recorded steps (see replay_subtree); past them
      // the tree is already at its last subtree.
      if (e <= pa.nsteps) prune_children(pseq0(e), false);
      e += 1;
    }
    TestCost& t = est[static_cast<std::size_t>(k)];
    t = pour_test_prune();
    if (k == 1 && pa.talpha0[0] < kEps) {
      est[0].cost = t.cost + kLargestPenalty;
      best.cost = std::numeric_limits<double>::max();
    }
    if (t.cost <= best.cost) {
      best = t;
      choice.zero_se = k;
    }
  }

  const double b = std::sqrt(best.variance) * in.serule + best.cost;
  choice.given_se = choice.zero_se;
  for (int s = nsub; s >= 0; --s) {
    if (est[static_cast<std::size_t>(s)].cost <= b) {
      choice.given_se = s;
      break;
    }
  }

  std::vector<SubtreeCost> rows;
  for (const TestCost& t : est) rows.push_back({t.cost, std::sqrt(t.variance)});
  {
    std::ofstream out(std::string(trim(in.outfile)), std::ios::app);
    write_subtree_cost_table(out,
                             {"  Test sample misclassification cost and SE of subtrees:",
                              "  Subtree        R(t)              SE       # Terminal Nodes"},
                             rows, choice, pa.nonempty_terminal, pa.pnodes0);
  }
  in.prunecost = rows[static_cast<std::size_t>(choice.given_se)].total;
  in.prunese = rows[static_cast<std::size_t>(choice.given_se)].se;

  replay_subtree(choice.given_se);
}

}  // namespace vardel
