// Growing the largest tree on 1,000,000 cases with 20 numerical predictors
// and 3 classes (default options: 1D variable selection, discriminant split
// points). The sample is made in memory: a few predictors carry the class,
// the rest are noise.
#include <benchmark/benchmark.h>

#include <cmath>

#include "run/init.hpp"
#include "tree/grow_tree.hpp"
#include "tree/tree_store.hpp"

namespace {

constexpr int kNumerical = 20;
constexpr int kClasses = 3;

void make_sample(int cases) {
  vardel::Init& in = vardel::init();
  in.reset();
  in.nobs = cases;
  in.nvar = kNumerical;
  in.nclass = kClasses;
  in.vtype.assign(kNumerical, 'n');
  in.xdata.assign(cases, kNumerical, 0.0);
  in.misind.assign(cases, kNumerical, 'n');
  in.cdata.assign(cases, 0);
  in.noc.assign(kClasses, 0);
  unsigned x = 88172645u;
  auto uniform = [&x] {  // xorshift, mapped to (0, 1)
    x ^= x << 13;
    x ^= x >> 17;
    x ^= x << 5;
    return (x + 0.5) / 4294967296.0;
  };
  for (int i = 1; i <= cases; ++i) {
    const int cls = 1 + static_cast<int>(uniform() * kClasses);
    in.cdata(i) = cls;
    ++in.noc(cls);
    for (int j = 1; j <= kNumerical; ++j) {
      double v = 10.0 * uniform();
      if (j <= 3) v += 2.0 * cls * j;                    // informative
      if (j == 4) v *= cls;                              // differs in spread
      in.xdata(i, j) = std::round(v * 1000.0) / 1000.0;  // three decimals, as in a file
    }
  }
  in.prob.assign(kClasses, 0.0);
  in.cost.assign(kClasses, kClasses, 0.0);
  in.misslearn = 'n';
  vardel::set_default_options(in);
  in.maxnodeid = vardel::maxnodeid_for(kClasses);
  vardel::compute_record_positions(in);
}

void BM_GrowLargestTree(benchmark::State& state) {
  const int cases = static_cast<int>(state.range(0));
  make_sample(cases);
  vardel::Init& in = vardel::init();
  for (auto _ : state) {
    vardel::tree_store().reset();
    vardel::tree_store().start();
    in.termnode.assign(cases, 1);
    vardel::grow_tree(in.xdata, in.cdata, in.misind, in.prob, in.termnode);
    state.counters["nodes"] = in.nodes;
  }
  state.SetItemsProcessed(state.iterations() * cases);
}

BENCHMARK(BM_GrowLargestTree)
    ->Arg(100000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

}  // namespace
