#include "tree/grow_tree.hpp"

#include <algorithm>
#include <iostream>
#include <vector>

#include "missing/node_means.hpp"
#include "numerics/parallel_for.hpp"
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
  const FArray<int>& y;
  const FArray<double>& prob;
  FArray<int>& termnode;
  FArray<int> csize;  // cases of each class in the sample
  int nobs = 0;
  FArray<int> csize1;  // complete cases of each class (fit on complete cases only)
  int ncomplete = 0;
  // The caller's tables when the root has borrowed them.
  FArray<double>* lender_x = nullptr;
  FArray<char>* lender_mis = nullptr;
};

enum class Search { classify, exhaust0, exhaust_all };

struct Dispatch {
  Search search;
  Member member;
  bool node_means;  // fill missing cells with the node's class centres first
};

// The split routine of a node, from the missing-value settings as they
// stand (they may change during a build).
Dispatch dispatch(Init& in) {
  if (in.splitsel == 2) {
    // Exhaustive search: a lasting change of both missing-value settings.
    in.impbuild = 3;
    in.impprune = 2;
    if (in.varsel == 2) return {Search::exhaust0, Member::c0, true};
    if (in.varsel == 3) return {Search::exhaust_all, Member::c0, true};
    std::cout
        << "  ***ERROR*** Variable selection by the 2D method is not available in this version"
        << std::endl;
    stop_run(1);
  }
  const int b = in.impbuild;
  const int r = in.impprune;
  if (in.misslearn != 'y' && in.misstest != 'y') return {Search::classify, Member::c0, false};
  if (r < 5) {
    if (b == 1) return {Search::classify, Member::c1, true};
    if (b == 2) return {Search::classify, Member::c0, true};
    if (b == 3) return {Search::classify, Member::c3, true};
    return {Search::classify, Member::c0, false};
  }
  if (r == 5) {
    if (b == 1) return {Search::classify, Member::c15, true};
    if (b == 2) return {Search::classify, Member::c25, true};
    if (b == 3) return {Search::classify, Member::c5, true};
    return {Search::classify, Member::c25, false};
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

int parent_of(int t, int k_classes) {
  return t == 1 ? 0 : (t - 2) / k_classes + 1;
}

// The given rows (counted from 1) of a cases-by-predictors table, in order,
// copied column by column.
template <class T>
FArray<T> gather_rows(const FArray<T>& from, const std::vector<int>& rows, T fill) {
  const int n = static_cast<int>(rows.size());
  FArray<T> to(n, from.extent2(), fill);
  parallel_for(1, from.extent2(), rows.size(), [&](std::ptrdiff_t j) {
    const std::span<const T> source = from.column(j);
    const std::span<T> target = to.column(j);
    for (int r = 0; r < n; ++r)
      target[static_cast<std::size_t>(r)] =
          source[static_cast<std::size_t>(rows[static_cast<std::size_t>(r)] - 1)];
  });
  return to;
}

// The cases of one node: their positions in the sample (in case order) and
// the node's own copy of their predictor values and missing flags. A child's
// copy is taken from its parent's, whose missing cells may already hold the
// parent's class centres: every node fills its missing cells afresh before
// it reads them, so those values are never used.
struct NodeCases {
  std::vector<int> members;
  FArray<double> x;
  FArray<char> mis;
};

// Copies each row of a node's table into the table of its subnode py(r),
// keeping case order; the children's tables have their sizes already. Each
// column is a task of its own, with its own write positions.
template <class T>
void split_columns(const FArray<T>& from, const FArray<int>& py, std::vector<NodeCases>& children,
                   FArray<T> NodeCases::*table) {
  parallel_for(1, from.extent2(), static_cast<std::size_t>(from.extent1()), [&](std::ptrdiff_t j) {
    std::vector<T*> to(children.size());
    for (std::size_t k = 0; k < children.size(); ++k)
      to[k] = children[k].members.empty() ? nullptr : (children[k].*table).column(j).data();
    const std::span<const T> source = from.column(j);
    for (std::size_t r = 0; r < source.size(); ++r)
      *to[static_cast<std::size_t>(py(static_cast<FArray<int>::Index>(r + 1)) - 1)]++ = source[r];
  });
}

// Gives a borrowed root table back to its lender: the values the missing
// cells held when borrowed are put back first. Done at the latest when the
// root's work ends, also by a stop.
class Loan {
 public:
  Loan(Growth& g, NodeSample& node) : g_(g), node_(node) {
    if (g_.lender_x == nullptr) return;
    for (std::size_t i = 0; i < node_.misind.vector().size(); ++i)
      if (node_.misind.vector()[i] == 'y') held_.push_back(node_.xdat.vector()[i]);
  }
  ~Loan() { give_back(); }
  Loan(const Loan&) = delete;
  Loan& operator=(const Loan&) = delete;

  void give_back() {
    if (g_.lender_x == nullptr) return;
    std::vector<double>& x = node_.xdat.vector();
    std::size_t h = 0;
    for (std::size_t i = 0; i < x.size(); ++i)
      if (node_.misind.vector()[i] == 'y') x[i] = held_[h++];
    *g_.lender_x = std::move(node_.xdat);
    *g_.lender_mis = std::move(node_.misind);
    g_.lender_x = nullptr;
    g_.lender_mis = nullptr;
  }

 private:
  Growth& g_;
  NodeSample& node_;
  std::vector<double> held_;  // values of the missing cells, in storage order
};

// Finishes node t and everything below it.
void ldfuni_fit(Growth& g, int t, NodeCases cases) {
  Init& in = init();
  const int k_classes = in.nclass;
  const int p = in.nvar;
  ++in.nodes;

  NodeSample node;
  std::vector<int> members = std::move(cases.members);
  const int n = static_cast<int>(members.size());
  node.n = n;
  node.xdat = std::move(cases.x);
  node.misind = std::move(cases.mis);
  Loan loan(g, node);
  node.ydat.assign(n, 0);
  node.noc.assign(k_classes, 0);
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

  const bool any_present =
      std::find(node.misind.begin(), node.misind.end(), 'n') != node.misind.end();
  const bool stop = m <= 1 || n <= in.mindat || t >= in.maxnodeid || m >= n || !any_present;

  std::vector<double> record;
  if (!stop) {
    FArray<double> grand;
    FArray<double> meanmode;
    const Dispatch d = dispatch(in);
    if (d.node_means) {
      getmeanmode(node.xdat, node.ydat.span(), node.misind, node.noc.span(), n, grand, meanmode);
      fill_missing_cells(node.xdat, node.ydat.span(), node.misind, n, meanmode);
    }
    node.prob = g.prob;
    node.csize = g.csize;
    node.nobs = g.nobs;
    SplitResult split = d.search == Search::exhaust0      ? exhaust0(node)
                        : d.search == Search::exhaust_all ? exhaust_all(node)
                                                          : classify(d.member, node);

    // A split that leaves every case in one subnode is no split.
    if (split.success && n > 0) {
      const int first = split.py(1);
      const bool all_here =
          first >= 1 && first <= k_classes &&
          std::all_of(split.py.begin(), split.py.end(), [first](int v) { return v == first; });
      if (all_here) split.success = false;
    }

    if (split.success) {
      // Without filling, the record needs the centres of the split variable
      // alone; the split leaves the node's values as they were.
      if (!d.node_means)
        getmeanmode(node.xdat, node.ydat.span(), node.misind, node.noc.span(), n, grand, meanmode,
                    split.var);
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

      // Each child's cases, in case order, with its copy of their values:
      // one pass down each column hands every value to its subnode.
      std::vector<NodeCases> children(static_cast<std::size_t>(k_classes));
      for (int r = 1; r <= n; ++r) {
        const int i = members[static_cast<std::size_t>(r - 1)];
        g.termnode(i) = (t - 1) * k_classes + 1 + split.py(r);
        children[static_cast<std::size_t>(split.py(r) - 1)].members.push_back(i);
      }
      const bool any_missing =
          std::find(node.misind.begin(), node.misind.end(), 'y') != node.misind.end();
      for (NodeCases& child : children) {
        const int rows = static_cast<int>(child.members.size());
        child.x.assign(rows, p, 0.0);
        child.mis.assign(rows, p, 'n');
      }
      split_columns(node.xdat, split.py, children, &NodeCases::x);
      if (any_missing) split_columns(node.misind, split.py, children, &NodeCases::mis);
      loan.give_back();
      node = NodeSample{};
      split = SplitResult{};
      members = {};
      for (int k = 1; k <= k_classes; ++k)
        ldfuni_fit(g, (t - 1) * k_classes + k + 1,
                   std::move(children[static_cast<std::size_t>(k - 1)]));
      return;
    }
  }

  record.clear();
  pack_counts(record, n, iclass, rt, node.noc);
  tree_store().add_node(t, parent_of(t, k_classes), record);
}

// Starts a growth on y with its priors: class counts, and under fitting on
// complete cases (impbuild 1) the counts of the complete cases.
Growth start_growth(const FArray<int>& y, const FArray<char>& misind, const FArray<double>& prob,
                    FArray<int>& termnode) {
  Init& in = init();
  in.nodes = 0;
  Growth g{y, prob, termnode, FArray<int>(in.nclass, 0), static_cast<int>(y.size()), FArray<int>(),
           0};
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
  return g;
}

// The cases whose node is 1.
std::vector<int> root_members(const FArray<int>& termnode) {
  std::vector<int> members;
  for (int i = 1; i <= termnode.size(); ++i)
    if (termnode(i) == 1) members.push_back(i);
  return members;
}

// Gives the root the sample's own tables when every case starts there (true),
// or a copy of the rows that do (false).
bool take_root_tables(NodeCases& root, FArray<double>& x, FArray<char>& misind,
                      const FArray<int>& termnode) {
  root.members = root_members(termnode);
  if (static_cast<FArray<int>::Index>(root.members.size()) == x.extent1()) {
    root.x = std::move(x);
    root.mis = std::move(misind);
    return true;
  }
  root.x = gather_rows(x, root.members, 0.0);
  root.mis = gather_rows(misind, root.members, 'n');
  return false;
}

}  // namespace

void grow_tree(const FArray<double>& x, const FArray<int>& y, const FArray<char>& misind,
               const FArray<double>& prob, FArray<int>& termnode) {
  Growth g = start_growth(y, misind, prob, termnode);
  NodeCases root;
  root.members = root_members(termnode);
  root.x = gather_rows(x, root.members, 0.0);
  root.mis = gather_rows(misind, root.members, 'n');
  ldfuni_fit(g, 1, std::move(root));
}

void grow_tree(FArray<double>&& x, const FArray<int>& y, FArray<char>&& misind,
               const FArray<double>& prob, FArray<int>& termnode) {
  Growth g = start_growth(y, misind, prob, termnode);
  NodeCases root;
  take_root_tables(root, x, misind, termnode);
  ldfuni_fit(g, 1, std::move(root));
}

void grow_tree_in_place(FArray<double>& x, const FArray<int>& y, FArray<char>& misind,
                        const FArray<double>& prob, FArray<int>& termnode) {
  Growth g = start_growth(y, misind, prob, termnode);
  NodeCases root;
  if (take_root_tables(root, x, misind, termnode)) {
    // Lent, not given: the tables go back to the sample once the root's
    // children have their own.
    g.lender_x = &x;
    g.lender_mis = &misind;
  }
  ldfuni_fit(g, 1, std::move(root));
}

}  // namespace vardel
