#include "tree/grow_tree.hpp"

#include <algorithm>
#include <atomic>
#include <iostream>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

#include "missing/node_means.hpp"
#include "numerics/parallel_for.hpp"
#include "numerics/tally.hpp"
#include "run/init.hpp"
#include "run/stop.hpp"
#include "split/classify.hpp"
#include "split/node_split.hpp"
#include "tree/missing_cells.hpp"
#include "tree/node_class.hpp"
#include "tree/tree_store.hpp"

namespace vardel {

namespace {

constexpr double kTestCodeF = 70.0;  // character code of "F"
constexpr double kTestCodeL = 76.0;  // character code of "L"

// Growth's table: the tree's cases once each. Its rows are reordered as
// nodes split, so that every node's cases are one block of rows, in case
// order; cases[r - 1] is the case (in the sample) on row r and classes[r - 1]
// its class.
struct GrowthTable {
  FArray<double> x;
  FArray<char> mis;
  std::vector<int> cases;
  std::vector<int> classes;
};

// What growth keeps of a finished node until the tree is stored.
struct GrownNode {
  std::vector<double> record;
  FArray<int> noc;
  int n = 0;
  NodeClass found;  // the node's class, with a tie not yet settled
  bool split = false;
};

// The sample a tree is grown on, and what growth keeps about it.
struct Growth {
  Growth(const FArray<int>& y_, const FArray<double>& prob_, FArray<int>& termnode_)
      : y(y_), prob(prob_), termnode(termnode_) {}

  const FArray<int>& y;
  const FArray<double>& prob;
  FArray<int>& termnode;
  FArray<int> csize;  // cases of each class in the sample
  int nobs = 0;
  FArray<int> csize1;  // complete cases of each class (fit on complete cases only)
  int ncomplete = 0;
  GrowthTable table;
  bool any_missing = false;  // whether the table has a missing cell
  // Missing cells hold +0.0 whenever a node starts (see meanss1_zeroed).
  bool zeroed = false;
  std::atomic<int> nodes{0};
  std::mutex grown_mutex;
  std::map<int, GrownNode> grown;  // finished nodes by number

  void keep(int t, GrownNode&& node) {
    std::lock_guard lock(grown_mutex);
    grown.insert_or_assign(t, std::move(node));
  }
};

enum class Search { classify, exhaust0, exhaust_all };

struct Dispatch {
  Search search;
  Member member;
  bool node_means;  // fill missing cells with the node's class centres first
};

// The classify member for the missing-value settings; nothing for settings
// that are not available.
std::optional<Dispatch> classify_dispatch(const Init& in) {
  const int b = in.impbuild;
  const int r = in.impprune;
  if (in.misslearn != 'y' && in.misstest != 'y')
    return Dispatch{Search::classify, Member::c0, false};
  if (r < 5) {
    if (b == 1) return Dispatch{Search::classify, Member::c1, true};
    if (b == 2) return Dispatch{Search::classify, Member::c0, true};
    if (b == 3) return Dispatch{Search::classify, Member::c3, true};
    return Dispatch{Search::classify, Member::c0, false};
  }
  if (r == 5) {
    if (b == 1) return Dispatch{Search::classify, Member::c15, true};
    if (b == 2) return Dispatch{Search::classify, Member::c25, true};
    if (b == 3) return Dispatch{Search::classify, Member::c5, true};
    return Dispatch{Search::classify, Member::c25, false};
  }
  return std::nullopt;
}

// The split routine of a node, from the missing-value settings as they
// stand (they may change during a build).
Dispatch dispatch(Init& in) {
  if (in.splitsel == 2) {
    // Exhaustive search: a lasting change of both missing-value settings.
    if (in.impbuild != 3) in.impbuild = 3;
    if (in.impprune != 2) in.impprune = 2;
    if (in.varsel == 2) return {Search::exhaust0, Member::c0, true};
    if (in.varsel == 3) return {Search::exhaust_all, Member::c0, true};
    std::cout
        << "  ***ERROR*** Variable selection by the 2D method is not available in this version"
        << std::endl;
    stop_run(1);
  }
  if (const std::optional<Dispatch> d = classify_dispatch(in)) return *d;
  std::cout << "  ***ERROR*** Proxy splits are not available in this version" << std::endl;
  stop_run(1);
}

// Whether a growth under these settings keeps its missing cells at +0.0
// between nodes: members that read filled cells of their split variable
// alone, which meanss1_zeroed fills for them.
bool keeps_missing_cells_zeroed(const Init& in) {
  if (in.splitsel == 2) return false;
  const std::optional<Dispatch> d = classify_dispatch(in);
  return d && d->node_means && reads_filled_split_variable_only(d->member);
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

int child_of(int t, int k, int k_classes) {
  return (t - 1) * k_classes + k + 1;
}

// Holds the scratch of one thread: a column's values on their way to their
// subnodes' rows.
template <class T>
std::vector<T>& scratch_of() {
  thread_local std::vector<T> scratch;
  return scratch;
}

// Reorders rows lo + 1 .. lo + n of every column of `table` so that row r
// moves to row lo + 1 + dest[r - 1]. Each column is a task of its own, which
// ends with then(j, column) while the column is at hand.
template <class T, class Then = void (*)(std::ptrdiff_t, std::span<T>)>
void move_rows(
    FArray<T>& table, int lo, const std::vector<int>& dest,
    Then then = [](std::ptrdiff_t, std::span<T>) {}) {
  const std::size_t n = dest.size();
  parallel_for(1, table.extent2(), n, [&](std::ptrdiff_t j) {
    const std::span<T> column = table.column(j).subspan(static_cast<std::size_t>(lo), n);
    std::vector<T>& moved = scratch_of<T>();
    if (moved.size() < n) moved.resize(n);
    for (std::size_t r = 0; r < n; ++r) moved[static_cast<std::size_t>(dest[r])] = column[r];
    std::copy(moved.begin(), moved.begin() + static_cast<std::ptrdiff_t>(n), column.begin());
    then(j, column);
  });
}

// Whether a block of missing flags holds the value v.
bool holds(FMatrixView<const char> mis, char v) {
  for (std::ptrdiff_t j = 1; j <= mis.extent2(); ++j)
    if (holds_flag(mis.column(j), v)) return true;
  return false;
}

// Whether every flag is 'y' or 'n' (counted without a branch per flag).
bool only_yes_or_no(std::span<const char> flags) {
  std::size_t others = 0;
  for (const char f : flags) others += static_cast<std::size_t>((f != 'y') & (f != 'n'));
  return others == 0;
}

// The split's part of a node record, after the counts.
void pack_split(std::vector<double>& record, const SplitResult& split, const FArray<double>& grand,
                const FArray<double>& meanmode) {
  const Init& in = init();
  for (int k = 1; k <= in.nclass; ++k) record.push_back(meanmode(k, split.var));
  record.push_back(grand(split.var));
  record.push_back(split.var);
  record.push_back(in.varsel == 2 ? (split.test == 'L' ? kTestCodeL : kTestCodeF) : 0.0);
  record.insert(record.end(), static_cast<std::size_t>(in.nvar), 0.0);  // fk
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
}

// Moves the cases and classes of rows lo + 1 .. lo + n as move_rows moves
// the table's rows.
void move_cases(GrowthTable& table, int lo, const std::vector<int>& dest) {
  const std::size_t n = dest.size();
  for (std::vector<int>* list : {&table.cases, &table.classes}) {
    const std::span<int> rows = std::span<int>(*list).subspan(static_cast<std::size_t>(lo), n);
    std::vector<int>& moved = scratch_of<int>();
    if (moved.size() < n) moved.resize(n);
    for (std::size_t r = 0; r < n; ++r) moved[static_cast<std::size_t>(dest[r])] = rows[r];
    std::copy(moved.begin(), moved.begin() + static_cast<std::ptrdiff_t>(n), rows.begin());
  }
}

// Makes each subnode's cases one block of rows of the node's block (rows
// lo + 1 .. lo + n, py(r) the subnode of row r), in case order: a stable
// reordering of the rows by subnode. start and size: each subnode's block,
// counted from lo. The missing flags move too when the block has any. With
// the node's missing rows (cells kept at +0.0), the subnodes' missing rows
// come from them and the flags are written from those.
void split_block(GrowthTable& table, int lo, const FArray<int>& py, bool move_flags,
                 std::vector<int>& start, std::vector<int>& size, const MissingRows* missing,
                 std::vector<MissingRows>& sub_missing) {
  const int k_classes = init().nclass;
  const auto n = static_cast<std::size_t>(py.size());
  size.assign(static_cast<std::size_t>(k_classes), 0);
  tally(py.span(), size);
  start.assign(static_cast<std::size_t>(k_classes), 0);
  for (std::size_t k = 1; k < start.size(); ++k) start[k] = start[k - 1] + size[k - 1];

  std::vector<int> dest(n);
  std::vector<int> next = start;
  for (std::size_t r = 0; r < n; ++r) {
    const int k = py(static_cast<FArray<int>::Index>(r + 1));
    dest[r] = next[static_cast<std::size_t>(k - 1)]++;
  }
  // The cases and their classes move on one thread while the columns move
  // on the others.
  fork_join(2, [&](std::ptrdiff_t task) {
    if (task == 0) {
      move_cases(table, lo, dest);
      return;
    }
    if (missing == nullptr) {
      move_rows(table.x, lo, dest);
      if (move_flags) move_rows(table.mis, lo, dest);
      return;
    }
    // The subnodes' missing cells go back to +0.0 as soon as their column
    // has moved.
    sub_missing = subnode_missing_rows(*missing, py.span(), dest, start);
    move_rows(table.x, lo, dest, [&](std::ptrdiff_t j, std::span<double> column) {
      for (std::size_t k = 0; k < sub_missing.size(); ++k)
        for (int r : sub_missing[k][static_cast<std::size_t>(j - 1)])
          column[static_cast<std::size_t>(start[k] + r - 1)] = 0.0;
    });
    write_flags(FMatrixView<char>(table.mis).rows(lo, static_cast<std::ptrdiff_t>(n)), sub_missing,
                start);
  });
}

// Finishes node t, rows lo + 1 .. lo + n of the table, and everything below it.
// missing: the node's missing rows when cells are kept at +0.0.
void ldfuni_fit(Growth& g, int t, int lo, int n, MissingRows&& missing) {
  Init& in = init();
  const int k_classes = in.nclass;
  const int p = in.nvar;
  GrowthTable& table = g.table;
  g.nodes.fetch_add(1);

  NodeSample node;
  node.n = n;
  node.xdat = FMatrixView<double>(table.x).rows(lo, n);
  node.misind = FMatrixView<char>(table.mis).rows(lo, n);
  const std::span<int> cases =
      std::span<int>(table.cases)
          .subspan(static_cast<std::size_t>(lo), static_cast<std::size_t>(n));
  const std::span<int> classes =
      std::span<int>(table.classes)
          .subspan(static_cast<std::size_t>(lo), static_cast<std::size_t>(n));
  node.ydat.assign(n, 0);
  std::copy(classes.begin(), classes.end(), node.ydat.begin());
  node.noc.assign(k_classes, 0);
  tally(classes, node.noc.span());
  int m = 0;
  for (int c : node.noc) m += c > 0;
  node.m = m;

  GrownNode grown;
  grown.n = n;
  grown.noc = node.noc;
  int iclass = 0;
  double rt = 0.0;
  FArray<double> pr;
  if (m >= 1) {
    grown.found =
        geticlasswithtie(node.noc.span(), g.csize.span(), g.prob.span(), g.nobs, node.altpr, pr);
    iclass = grown.found.iclass;  // a tie is settled once the siblings are known
    rt = getrt(pr);
  }

  const bool any_present = n > 0 && p > 0 && holds(node.misind, 'n');
  const bool stop = m <= 1 || n <= in.mindat || t >= in.maxnodeid || m >= n || !any_present;

  std::vector<double>& record = grown.record;
  if (!stop) {
    const Dispatch d = dispatch(in);
    // Tests on the present values read the same class means the filling
    // needs: worked out once, before the filling (which they do not see).
    Moments present;
    if (g.zeroed) {
      meanss1_zeroed({node.xdat, missing}, node.misind, node.ydat.span(), node.noc.span(), present);
      node.present_moments = &present;
    } else if ((d.search == Search::exhaust0 ||
                (d.search == Search::classify && tests_on_present_values(d.member))) &&
               g.any_missing) {
      meanss1(node.xdat, node.misind, node.ydat.span(), k_classes, present, Squares::tests_only);
      node.present_moments = &present;
    }
    if (d.node_means && g.any_missing) {
      // A member that reads filled cells of its split variable alone has just
      // that column filled; the cells of the others are never read before a
      // subnode fills them anew.
      auto fill = [&node, n](int only) {
        fill_node_missing(node.xdat, node.ydat.span(), node.misind, node.noc.span(), n,
                          node.present_moments, only);
      };
      if (d.search == Search::classify && reads_filled_split_variable_only(d.member))
        node.fill_split_variable = fill;
      else
        fill(0);
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
      // The record needs the centres of the split variable alone: they rest
      // on the present values, which neither filling nor the split changes.
      FArray<double> grand;
      FArray<double> meanmode;
      getmeanmode(node.xdat, node.ydat.span(), node.misind, node.noc.span(), n, grand, meanmode,
                  split.var);
      pack_counts(record, n, iclass, rt, node.noc);
      pack_split(record, split, grand, meanmode);
      grown.split = true;

      const bool any_missing = g.any_missing && !g.zeroed && holds(node.misind, 'y');
      node = NodeSample{};
      std::vector<int> start;
      std::vector<int> size;
      std::vector<MissingRows> sub_missing(static_cast<std::size_t>(k_classes));
      split_block(table, lo, split.py, any_missing, start, size, g.zeroed ? &missing : nullptr,
                  sub_missing);
      missing = MissingRows{};
      split = SplitResult{};
      g.keep(t, std::move(grown));
      // The subtrees share nothing but the tree's cases, each its own rows:
      // they grow side by side, and the store gets them in order at the end.
      fork_join(k_classes, [&](std::ptrdiff_t k) {
        const auto s = static_cast<std::size_t>(k);
        ldfuni_fit(g, child_of(t, static_cast<int>(k) + 1, k_classes), lo + start[s], size[s],
                   std::move(sub_missing[s]));
      });
      return;
    }
  }

  record.clear();
  pack_counts(record, n, iclass, rt, node.noc);
  g.keep(t, std::move(grown));
  // A case's node is the terminal node it ends in.
  for (int i : cases) g.termnode(i) = t;
}

// The class of node t, a tie settled against its siblings as they stand when
// t is reached depth first: a sibling before t counts when it stayed
// terminal (the cases of one that split have moved on to its subnodes), a
// sibling after t counts with all its cases.
int settled_class(const Growth& g, int t, const GrownNode& node) {
  const int k_classes = init().nclass;
  if (t <= 1 || node.found.tie == 0) return node.found.iclass;
  const int parent = parent_of(t, k_classes);
  FArray<int> count(k_classes, k_classes, 0);
  FArray<int> size(k_classes, 0);
  for (int s = 1; s <= k_classes; ++s) {
    const int sibling = child_of(parent, s, k_classes);
    const GrownNode& other = g.grown.at(sibling);
    if (sibling < t && other.split) continue;
    for (int i = 1; i <= k_classes; ++i) count(i, s) = other.noc(i);
    size(s) = other.n;
  }
  return settle_tie(t, node.found, count, size, g.csize.span(), g.prob.span());
}

// Adds node t and its subtree to the tree store, depth first, subnode 1 first.
void store_subtree(Growth& g, int t) {
  const int k_classes = init().nclass;
  GrownNode& node = g.grown.at(t);
  if (node.record.size() > 1) node.record[1] = settled_class(g, t, node);
  tree_store().add_node(t, parent_of(t, k_classes), node.record);
  if (!node.split) return;
  for (int k = 1; k <= k_classes; ++k) store_subtree(g, child_of(t, k, k_classes));
}

// The cases whose node is 1.
std::vector<int> root_members(const FArray<int>& termnode) {
  std::vector<int> members;
  for (int i = 1; i <= termnode.size(); ++i)
    if (termnode(i) == 1) members.push_back(i);
  return members;
}

// Starts a growth on y with its priors: class counts, and under fitting on
// complete cases (impbuild 1) the counts of the complete cases; the root's
// cases.
void start_growth(Growth& g, const FArray<char>& misind) {
  Init& in = init();
  in.nodes = 0;
  g.csize.assign(in.nclass, 0);
  g.nobs = static_cast<int>(g.y.size());
  for (int c : g.y) ++g.csize(c);
  if (in.impbuild == 1) {
    // Fit on complete cases: a class without a complete case turns the build
    // to nodewise imputation, for the rest of the run.
    g.csize1.assign(in.nclass, 0);
    for (int i = 1; i <= g.nobs; ++i) {
      bool complete = true;
      for (int j = 1; j <= in.nvar && complete; ++j) complete = misind(i, j) == 'n';
      if (!complete) continue;
      ++g.csize1(g.y(i));
      ++g.ncomplete;
    }
    for (int c : g.csize1)
      if (c == 0) in.impbuild = 2;
  }
  g.table.cases = root_members(g.termnode);
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

// Whether every case of the sample x starts at the root.
bool all_at_root(const Growth& g, const FArray<double>& x) {
  return static_cast<FArray<int>::Index>(g.table.cases.size()) == x.extent1();
}

// The table as a copy of the root's rows of the sample.
void copy_root_rows(Growth& g, const FArray<double>& x, const FArray<char>& misind) {
  g.table.x = gather_rows(x, g.table.cases, 0.0);
  g.table.mis = gather_rows(misind, g.table.cases, 'n');
}

// Puts every column of a table back in case order (row r holds case
// cases[r - 1]).
template <class T>
void restore_case_order(FArray<T>& table, const std::vector<int>& cases) {
  parallel_for(1, table.extent2(), cases.size(), [&](std::ptrdiff_t j) {
    const std::span<T> column = table.column(j);
    std::vector<T>& ordered = scratch_of<T>();
    if (ordered.size() < cases.size()) ordered.resize(cases.size());
    for (std::size_t r = 0; r < cases.size(); ++r)
      ordered[static_cast<std::size_t>(cases[r] - 1)] = column[r];
    std::copy(ordered.begin(), ordered.begin() + static_cast<std::ptrdiff_t>(cases.size()),
              column.begin());
  });
}

// Grows the tree from the table, keeping the finished nodes, then stores it.
void grow_and_store(Growth& g) {
  g.table.classes.resize(g.table.cases.size());
  for (std::size_t r = 0; r < g.table.cases.size(); ++r) g.table.classes[r] = g.y(g.table.cases[r]);
  g.any_missing = holds_flag(g.table.mis.span(), 'y');
  // Cells are kept at +0.0 only where flags are 'y' or 'n': the subnodes'
  // flags are written from their missing rows.
  g.zeroed =
      g.any_missing && keeps_missing_cells_zeroed(init()) && only_yes_or_no(g.table.mis.span());
  MissingRows missing;
  if (g.zeroed) {
    missing = missing_rows(g.table.mis);
    zero_cells(g.table.x, missing);
  }
  const int n = static_cast<int>(g.table.cases.size());
  ldfuni_fit(g, 1, 0, n, std::move(missing));
  init().nodes = g.nodes.load();
  store_subtree(g, 1);
}

// Lends a sample's tables to growth, which reorders their rows and fills
// their missing cells: on the way back (also when the run stops) the rows
// return to case order and the missing cells to the values they held.
class Loan {
 public:
  Loan(Growth& g, FArray<double>& x, FArray<char>& mis)
      : g_(g), x_(x), mis_(mis), held_(static_cast<std::size_t>(x.extent2())) {
    if (holds_flag(mis.span(), 'y')) {
      parallel_for(1, x.extent2(), static_cast<std::size_t>(x.extent1()), [&](std::ptrdiff_t j) {
        const std::span<const char> flags = mis.column(j);
        const std::span<const double> values = x.column(j);
        std::vector<double>& held = held_[static_cast<std::size_t>(j - 1)];
        for (std::size_t i = 0; i < flags.size(); ++i)
          if (flags[i] == 'y') held.push_back(values[i]);
      });
    }
    g_.table.x = std::move(x);
    g_.table.mis = std::move(mis);
  }
  ~Loan() {
    GrowthTable& table = g_.table;
    restore_case_order(table.x, table.cases);
    const bool any_held = std::any_of(held_.begin(), held_.end(),
                                      [](const std::vector<double>& h) { return !h.empty(); });
    if (any_held) {
      restore_case_order(table.mis, table.cases);
      FArray<double>& x = table.x;
      const FArray<char>& mis = table.mis;
      parallel_for(1, x.extent2(), static_cast<std::size_t>(x.extent1()), [&](std::ptrdiff_t j) {
        const std::span<const char> flags = mis.column(j);
        const std::span<double> values = x.column(j);
        const std::vector<double>& held = held_[static_cast<std::size_t>(j - 1)];
        std::size_t h = 0;
        for (std::size_t i = 0; i < flags.size() && h < held.size(); ++i)
          if (flags[i] == 'y') values[i] = held[h++];
      });
    }
    x_ = std::move(table.x);
    mis_ = std::move(table.mis);
  }
  Loan(const Loan&) = delete;
  Loan& operator=(const Loan&) = delete;

 private:
  Growth& g_;
  FArray<double>& x_;
  FArray<char>& mis_;
  // The values of each column's missing cells, in case order.
  std::vector<std::vector<double>> held_;
};

}  // namespace

void grow_tree(const FArray<double>& x, const FArray<int>& y, const FArray<char>& misind,
               const FArray<double>& prob, FArray<int>& termnode) {
  Growth g(y, prob, termnode);
  start_growth(g, misind);
  copy_root_rows(g, x, misind);
  grow_and_store(g);
}

void grow_tree(FArray<double>&& x, const FArray<int>& y, FArray<char>&& misind,
               const FArray<double>& prob, FArray<int>& termnode) {
  Growth g(y, prob, termnode);
  start_growth(g, misind);
  if (all_at_root(g, x)) {
    g.table.x = std::move(x);
    g.table.mis = std::move(misind);
  } else {
    copy_root_rows(g, x, misind);
  }
  grow_and_store(g);
  x = std::move(g.table.x);
  misind = std::move(g.table.mis);
}

void grow_tree_in_place(FArray<double>& x, const FArray<int>& y, FArray<char>& misind,
                        const FArray<double>& prob, FArray<int>& termnode) {
  Growth g(y, prob, termnode);
  start_growth(g, misind);
  if (!all_at_root(g, x)) {
    copy_root_rows(g, x, misind);
    grow_and_store(g);
    return;
  }
  Loan loan(g, x, misind);
  grow_and_store(g);
}

}  // namespace vardel
