#include "prune/cv_prune.hpp"

#include <fstream>
#include <iostream>
#include <utility>

#include "numerics/format.hpp"
#include "prune/alpha_seq.hpp"
#include "prune/class_tables.hpp"
#include "prune/cv_costs.hpp"
#include "prune/cv_progress.hpp"
#include "prune/cv_table.hpp"
#include "prune/fold_data.hpp"
#include "prune/prune_arrays.hpp"
#include "prune/pruned_pours.hpp"
#include "prune/replay.hpp"
#include "prune/stratify.hpp"
#include "run/init.hpp"
#include "tree/grow_tree.hpp"
#include "tree/tree_store.hpp"

namespace vardel {

namespace {

constexpr double kEps = 2.220446049250313e-16;  // tolerance on link strengths

// Pours the test part through the tree in the store into subtree s's table.
void pour_into(PrunedPours& pours, ClassTables& q, int s, FArray<double>& x, std::span<const int> y,
               const FArray<char>& mis) {
  const int k = q.nclass();
  FArray<int> table(k, k, 0);
  pours.pour(table, x, y, mis, static_cast<int>(y.size()));
  FView<int> out = q.table(s);
  for (int i = 1; i <= k * k; ++i) out(i) = table(i);
}

}  // namespace

void cv_test(FArray<double>& xcv, std::span<const int> ycv, const FArray<char>& miscv,
             ClassTables& q) {
  PruneArrays& pa = prune_arrays();
  refill_arrays();
  fill_cost();
  // The subtrees are prunings of one tree: later pours follow the first's paths.
  PrunedPours pours;
  pour_into(pours, q, 0, xcv, ycv, miscv);
  for (int k = 1; k <= pa.nsubtrees; ++k) {
    for (;;) {
      if (pa.nstat[0] == 1) break;  // the root is terminal
      double a = pa.nalpha[0];
      for (std::size_t i = 0; i < pa.nalpha.size(); ++i)
        if (pa.nstat[i] == 0 && pa.nalpha[i] < a) a = pa.nalpha[i];
      if (!(a <= kEps + pa.palpha[static_cast<std::size_t>(k - 1)])) break;
      const double b = kEps + a;
      for (std::size_t i = pa.nid.size(); i-- > 0;) {
        if (pa.nstat[i] != 0 || pa.nalpha[i] > b) continue;
        pa.nstat[i] = 1;
        prune_children(pa.nid[i], true);
      }
      refill_arrays();
      fill_cost();
    }
    pour_into(pours, q, k, xcv, ycv, miscv);
  }
}

void cv_prune(const FArray<double>& x, const FArray<int>& y, const FArray<char>& mis) {
  Init& in = init();
  PruneArrays& pa = prune_arrays();
  const int v = in.folds;
  const int n = static_cast<int>(y.size());
  FArray<int> mcv(n, 0);
  stratify(v, in.seed, mcv.span());

  ClassTables table(in.nclass, pa.nsubtrees);
  FArray<int> noc(in.nclass, 0);
  for (int c : y) ++noc(c);

  TreeStore& store = tree_store();
  cv_progress_start(v);
  // The storage of one fold's learning tables, handed on to the next fold's.
  FArray<double> spare_x;
  FArray<char> spare_mis;
  for (int f = 1; f <= v; ++f) {
    store.finish();
    store.restart();
    // The test part is taken once the growth has let go of the learning part.
    FoldData fold;
    fold.x = std::move(spare_x);
    fold.mis = std::move(spare_mis);
    select_fold_learning(f, mcv.span(), x, y.span(), mis, fold);
    const FArray<double> prob = fold_priors(in.priortype, fold.y.span(), in.nclass, in.prob);
    grow_tree(std::move(fold.x), fold.y, std::move(fold.mis), prob, fold.termnode);
    spare_x = std::move(fold.x);
    spare_mis = std::move(fold.mis);
    select_fold_test(f, mcv.span(), x, y.span(), mis, fold);
    ClassTables q(in.nclass, pa.nsubtrees);
    cv_test(fold.xcv, fold.ycv.span(), fold.miscv, q);
    table.add(q);
    cv_progress_dot(f);
  }
  cv_progress_end();

  std::vector<SubtreeCost> costs = subtree_costs(table, in.cost, in.priortype, in.prob, noc, n);
  const TreeChoice choice = choose_tree(costs, pa.talpha0.empty() ? 0.0 : pa.talpha0[0], in.serule);
  {
    std::ofstream out(std::string(trim(in.outfile)), std::ios::app);
    write_cv_table(out, costs, choice, pa.nonempty_terminal, pa.pnodes0);
  }
  in.prunecost = costs[static_cast<std::size_t>(choice.given_se)].total;
  in.prunese = costs[static_cast<std::size_t>(choice.given_se)].se;

  store.finish();
  store.restart();
  replay_subtree(choice.given_se);
}

}  // namespace vardel
