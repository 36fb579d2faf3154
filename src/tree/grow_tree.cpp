#include "tree/grow_tree.hpp"

#include <iostream>
#include <vector>

#include "missing/node_means.hpp"
#include "run/init.hpp"
#include "run/stop.hpp"
#include "split/classify.hpp"
#include "split/node_split.hpp"
#include "tree/node_class.hpp"
#include "tree/tree_store.hpp"

namespace vardel {

namespace {

constexpr double kTestCodeF = 70.0;  // character code of "F"
constexpr double kTestCodeL = 76.0;  // character code of "L"

// The sample a tree is grown on, and what growth keeps about it.
struct Growth {
  const FArray<double>& x;
  const FArray<int>& y;
  const FArray<char>& misind;
  const FArray<double>& prob;
  FArray<int>& termnode;
  FArray<int> csize;  // cases of each class in the sample
  int nobs = 0;
  FArray<int> csize1;  // complete cases of each class (fit on complete cases only)
  int ncomplete = 0;
};

struct Dispatch {
  Member member;
  bool node_means;  // fill missing cells with the node's class centres first
};

// The split routine of a node, from the missing-value settings as they
// stand (they may change during a build).
Dispatch dispatch(const Init& in) {
  const int b = in.impbuild;
  const int r = in.impprune;
  if (in.misslearn != 'y' && in.misstest != 'y') return {Member::c0, false};
  if (r < 5) {
    if (b == 1) return {Member::c1, true};
    if (b == 2) return {Member::c0, true};
    if (b == 3) return {Member::c3, true};
    return {Member::c0, false};
  }
  if (r == 5) {
    if (b == 1) return {Member::c15, true};
    if (b == 2) return {Member::c25, true};
    if (b == 3) return {Member::c5, true};
    return {Member::c25, false};
  }
  std::cout << "  ***ERROR*** Proxy splits are not available in this version" << std::endl;
  stop_run(1);
}

void pack_counts(std::vector<double>& y, int n, int iclass, double rt, const FArray<int>& noc) {
  y.push_back(n);
  y.push_back(iclass);
  y.push_back(rt);
  for (int v : noc) y.push_back(v);
}

int parent_of(int t, int k_classes) { return t == 1 ? 0 : (t - 2) / k_classes + 1; }

void ldfuni_fit(Growth& g, int t) {
  Init& in = init();
  const int k_classes = in.nclass;
  const int p = in.nvar;
  ++in.nodes;

  NodeSample node;
  int n = 0;
  for (int v : g.termnode) n += v == t;
  node.n = n;
  node.xdat.assign(n, p, 0.0);
  node.misind.assign(n, p, 'n');
  node.ydat.assign(n, 0);
  node.noc.assign(k_classes, 0);
  std::vector<int> members;  // positions of the node's cases in the sample
  members.reserve(static_cast<std::size_t>(n));
  for (int i = 1; i <= g.termnode.size(); ++i)
    if (g.termnode(i) == t) members.push_back(i);
  for (int j = 1; j <= p; ++j) {
    for (int r = 1; r <= n; ++r) {
      const int i = members[static_cast<std::size_t>(r - 1)];
      node.xdat(r, j) = g.x(i, j);
      node.misind(r, j) = g.misind(i, j);
    }
  }
  for (int r = 1; r <= n; ++r) {
    node.ydat(r) = g.y(members[static_cast<std::size_t>(r - 1)]);
    ++node.noc(node.ydat(r));
  }
  int m = 0;
  for (int c : node.noc) m += c > 0;
  node.m = m;

  int iclass = 0;
  double rt = 0.0;
  FArray<double> pr;
  if (m >= 1) {
    const NodeClass found =
        geticlasswithtie(node.noc.span(), g.csize.span(), g.prob.span(), g.nobs, node.altpr, pr);
    iclass = found.iclass;
    if (found.tie != 0)
      iclass = geticlass(t, found, g.termnode.span(), g.y.span(), g.csize.span(), g.prob.span());
    rt = getrt(pr);
  }

  bool any_present = false;
  for (char c : node.misind) any_present = any_present || c == 'n';
  const bool stop = m <= 1 || n <= in.mindat || t >= in.maxnodeid || m >= n || !any_present;

  std::vector<double> record;
  if (!stop) {
    FArray<double> grand;
    FArray<double> meanmode;
    getmeanmode(node.xdat, node.ydat.span(), node.misind, node.noc.span(), n, grand, meanmode);
    const Dispatch d = dispatch(in);
    if (d.node_means) {
      FArray<double> grand_sub;
      FArray<double> meanmode_sub_values;
      meanmode_sub(node.xdat, node.ydat.span(), node.misind, node.noc.span(), n, grand_sub,
                   meanmode_sub_values);
    }
    node.prob = g.prob;
    node.csize = g.csize;
    node.nobs = g.nobs;
    SplitResult split = classify(d.member, node);

    // A split that leaves every case in one subnode is no split.
    for (int k = 1; k <= k_classes && split.success; ++k) {
      bool all_here = true;
      for (int v : split.py) all_here = all_here && v == k;
      if (all_here && n > 0) split.success = false;
    }

    if (split.success) {
      pack_counts(record, n, iclass, rt, node.noc);
      for (int k = 1; k <= k_classes; ++k) record.push_back(meanmode(k, split.var));
      record.push_back(grand(split.var));
      record.push_back(split.var);
      record.push_back(in.varsel == 2 ? (split.test == 'L' ? kTestCodeL : kTestCodeF) : 0.0);
      record.insert(record.end(), static_cast<std::size_t>(p), 0.0);  // fk
      record.push_back(split.c > 0 ? static_cast<double>(split.c) : split.gmean);
      if (split.c > 0) {
        for (int v : split.ncutcat) record.push_back(v);
        for (int v : split.cutcat) record.push_back(v);
      } else {
        for (double v : split.cutpt) record.push_back(v);
      }
      if (in.impprune == 5 || in.impprune == 6) {
        record.push_back(split.alt_var);
        for (double v : split.coef5) record.push_back(v);  // K by 2, column by column
        record.push_back(split.c5);
        for (double v : split.crimcord5) record.push_back(v);
      }
      tree_store().add_node(t, parent_of(t, k_classes), record);

      for (int r = 1; r <= n; ++r)
        g.termnode(members[static_cast<std::size_t>(r - 1)]) = (t - 1) * k_classes + 1 + split.py(r);
      node = NodeSample{};
      split = SplitResult{};
      for (int k = 1; k <= k_classes; ++k) ldfuni_fit(g, (t - 1) * k_classes + k + 1);
      return;
    }
  }

  record.clear();
  pack_counts(record, n, iclass, rt, node.noc);
  tree_store().add_node(t, parent_of(t, k_classes), record);
}

}  // namespace

bool growth_available(const char** reason) {
  const Init& in = init();
  const char* why = nullptr;
  if (in.splittype != 1) why = "linear combination splits and bivariate node models";
  else if (in.ncat > 0) why = "categorical predictors";
  else if (in.splitsel == 2) why = "exhaustive split search";
  else if (in.varsel != 2) why = "variable selection by the 2D method";
  else if (in.impprune == 6) why = "proxy splits";
  if (reason != nullptr) *reason = why;
  return why == nullptr;
}

void grow_tree(const FArray<double>& x, const FArray<int>& y, const FArray<char>& misind,
               const FArray<double>& prob, FArray<int>& termnode) {
  Init& in = init();
  in.nodes = 0;
  Growth g{x, y, misind, prob, termnode, FArray<int>(in.nclass, 0), static_cast<int>(y.size()),
           FArray<int>(), 0};
  for (int c : y) ++g.csize(c);
  if (in.impbuild == 1) {
    // Fit on complete cases: a class without a complete case turns the build
    // to nodewise imputation, for the rest of the run.
    g.csize1.assign(in.nclass, 0);
    for (int i = 1; i <= g.nobs; ++i) {
      bool complete = true;
      for (int j = 1; j <= in.nvar && complete; ++j) complete = misind(i, j) == 'n';
      if (!complete) continue;
      ++g.csize1(y(i));
      ++g.ncomplete;
    }
    for (int c : g.csize1)
      if (c == 0) in.impbuild = 2;
  }
  ldfuni_fit(g, 1);
}

}  // namespace vardel
