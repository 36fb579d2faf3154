#include "split/classify.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

#include "numerics/parallel_for.hpp"
#include "numerics/round_to_long.hpp"
#include "run/init.hpp"
#include "split/backtran.hpp"
#include "split/boxcox.hpp"
#include "split/catsplit.hpp"
#include "split/chi_square_test.hpp"
#include "split/class_moments.hpp"
#include "split/crim.hpp"
#include "split/exhaust.hpp"
#include "split/guards.hpp"
#include "split/ldfuni.hpp"
#include "split/levene.hpp"
#include "split/pick.hpp"
#include "split/select_numeric.hpp"
#include "split/splitpt.hpp"
#include "tree/node_class.hpp"

namespace vardel {

namespace {

enum class FitSet { all, complete, available };
enum class Tests { common, per_variable, ranked };
enum class Levene { select2, select4, select6 };

struct Traits {
  FitSet fit;
  Tests tests;
  Levene levene;
  bool alternate;
};

Traits traits_of(Member member) {
  switch (member) {
    case Member::c0:
      return {FitSet::all, Tests::common, Levene::select2, false};
    case Member::c1:
      return {FitSet::complete, Tests::common, Levene::select2, false};
    case Member::c3:
      return {FitSet::available, Tests::per_variable, Levene::select6, false};
    case Member::c15:
      return {FitSet::complete, Tests::ranked, Levene::select4, true};
    case Member::c25:
      return {FitSet::all, Tests::ranked, Levene::select4, true};
    case Member::c5:
      return {FitSet::available, Tests::ranked, Levene::select6, true};
  }
  return {FitSet::all, Tests::common, Levene::select2, false};
}

// The cases the tests are run on: the node's, or a copy of its complete cases.
struct TestSet {
  FArray<double> x;
  FArray<int> y;
  FArray<char> mis;
  FArray<int> noc;
  int n = 0;
  int m = 0;
};

// A read-only view of the cases the tests are run on.
struct TestView {
  FMatrixView<const double> x;
  const FArray<int>& y;
  FMatrixView<const char> mis;
  const FArray<int>& noc;
  int m;
  const Moments* present = nullptr;  // meanss1 of these cases, if known
};

TestSet complete_cases(const NodeSample& node, int p, int k_classes) {
  std::vector<int> rows;
  for (int i = 1; i <= node.n; ++i) {
    bool complete = true;
    for (int j = 1; j <= p && complete; ++j) complete = node.misind(i, j) == 'n';
    if (complete) rows.push_back(i);
  }
  TestSet t;
  t.n = static_cast<int>(rows.size());
  t.x.assign(t.n, p, 0.0);
  t.mis.assign(t.n, p, 'n');
  t.y.assign(t.n, 0);
  t.noc.assign(k_classes, 0);
  for (int j = 1; j <= p; ++j)
    for (int r = 1; r <= t.n; ++r) t.x(r, j) = node.xdat(rows[static_cast<std::size_t>(r - 1)], j);
  for (int r = 1; r <= t.n; ++r) {
    t.y(r) = node.ydat(rows[static_cast<std::size_t>(r - 1)]);
    ++t.noc(t.y(r));
  }
  for (int c : t.noc) t.m += c > 0;
  return t;
}

// The outcome of the tests: the main variable, its test, and the first two
// ranks where the member keeps an alternate.
struct Choice {
  int var = 0;
  char test = 'F';
  Pick f1, f2, c1, c2;  // c1.var == 0 when no categorical variable was tested
};

int ordinal_of(const Init& in, int var) {
  int c = 0;
  for (int j = 1; j <= var; ++j) c += in.vtype(j) == 'c';
  return in.vtype(var) == 'c' ? c : 0;
}

Choice choose_variable(const Init& in, const Traits& tr, const TestView& t, Moments& mom) {
  const int p = in.nvar;
  const int ncat = in.ncat;
  const bool numerical = p > ncat;
  std::span<const char> vtype = in.vtype.span();
  Choice ch;
  Pick pf;  // p 1.0 until tested
  Pick pc;

  if (tr.tests == Tests::common) {
    // The two families of tests share nothing: they run side by side, so
    // that the threads left over by one take tasks of the other.
    fork_join(2, [&](std::ptrdiff_t family) {
      if (family == 0 && numerical) {
        meanss(t.x, t.y.span(), t.noc.span(), t.m, mom, Squares::tests_only);
        pf = select1(mom, vtype);
      }
      if (family == 1 && ncat > 0)
        pc = chi_sq(t.x, t.y.span(), t.noc.span(), t.m, in.catpos.span(), in.numcat.span());
    });
  } else if (tr.tests == Tests::per_variable) {
    if (t.present != nullptr)
      mom = *t.present;
    else
      meanss1(t.x, t.mis, t.y.span(), in.nclass, mom, Squares::tests_only);
    if (numerical) pf = select3(mom, vtype);
    if (ncat > 0)
      pc = chi_sq1(t.x, t.mis, t.y.span(), in.nclass, in.catpos.span(), in.numcat.span());
  } else {
    if (tr.fit == FitSet::complete && numerical) {
      // Complete cases: the two forms of the moments agree; the fit reads meanss's.
      meanss(t.x, t.y.span(), t.noc.span(), t.m, mom, Squares::tests_only);
    } else if (t.present != nullptr) {
      mom = *t.present;
    } else {
      meanss1(t.x, t.mis, t.y.span(), in.nclass, mom, Squares::tests_only);
    }
    if (numerical) {
      const TwoBest fb = select5(mom, vtype);
      ch.f1 = fb.first;
      ch.f2 = fb.second;
      pf = ch.f1;
    }
    if (ncat > 0) {
      const TwoBest cb =
          chi_sq5(t.x, t.mis, t.y.span(), in.nclass, in.catpos.span(), in.numcat.span());
      ch.c1 = cb.first;
      ch.c2 = cb.second;
      pc = ch.c1;
    }
  }
  if (!numerical) pf = Pick{};
  if (ncat == 0) pc = Pick{};

  const double level = in.alpha / p;
  if (numerical && pf.p <= pc.p && pf.p < level) {
    ch.var = pf.var;
  } else if (ncat > 0 && pf.p > pc.p && pc.p < level) {
    ch.var = pc.var;
  } else if (!numerical) {
    ch.var = pc.var;
  } else {
    Pick pl;
    const std::span<const double> gmean = mom.gmean.span();
    if (tr.levene == Levene::select2)
      pl = select2(t.x, t.y.span(), t.noc.span(), gmean, vtype);
    else if (tr.levene == Levene::select4)
      pl = select4(t.x, t.y.span(), t.noc.span(), gmean, vtype);
    else
      pl = select6(t.x, t.mis, t.y.span(), in.nclass, gmean, vtype);
    if (pl.var != 0 && pl.p < in.alpha / (2 * p - ncat)) {
      ch.var = pl.var;
      ch.test = 'L';
    } else {
      ch.var = (ncat == 0 || pf.p <= pc.p) ? pf.var : pc.var;
    }
  }
  return ch;
}

// The alternate variable that goes with the main one.
int alternate_of(const Init& in, const Choice& ch) {
  const bool numerical = in.nvar > in.ncat;
  const bool have_cat = in.ncat > 0;
  auto after_f1 = [&] { return have_cat && ch.c1.p < ch.f2.p ? ch.c1.var : ch.f2.var; };
  auto after_c1 = [&] {
    if (!numerical) return ch.c2.var;
    return ch.f1.p <= ch.c2.p ? ch.f1.var : ch.c2.var;
  };
  if (ch.test == 'L') {
    if (have_cat && ch.c1.p < ch.f1.p) return ch.c1.var;
    return ch.var == ch.f1.var ? after_f1() : ch.f1.var;
  }
  if (have_cat && ch.var == ch.c1.var) return after_c1();
  return after_f1();
}

// One variable's values over a set of rows, with their classes and counts.
struct Column {
  std::vector<double> x;
  std::vector<int> y;
  FArray<int> noc;
};

Column column_over(const NodeSample& node, int var, int k_classes, bool present_only,
                   bool complete_only, int p) {
  Column col;
  col.noc.assign(k_classes, 0);
  col.x.reserve(static_cast<std::size_t>(node.n));
  col.y.reserve(static_cast<std::size_t>(node.n));
  for (int i = 1; i <= node.n; ++i) {
    if (present_only && node.misind(i, var) != 'n') continue;
    if (complete_only) {
      bool complete = true;
      for (int j = 1; j <= p && complete; ++j) complete = node.misind(i, j) == 'n';
      if (!complete) continue;
    }
    col.x.push_back(node.xdat(i, var));
    col.y.push_back(node.ydat(i));
    ++col.noc(node.ydat(i));
  }
  return col;
}

// Class weights w: the cost-altered weights of the cases at hand, scaled to sum 1.
FArray<double> class_weights(const NodeSample& node, const FArray<int>& noc, bool own) {
  FArray<double> altpr = node.altpr;
  if (own) {
    FArray<double> pr;
    getprior(noc.span(), node.csize.span(), node.prob.span(), node.nobs, altpr, pr);
  }
  double total = 0.0;
  for (double a : altpr) total += a;
  FArray<double> w(altpr.size(), 0.0);
  for (int k = 1; k <= altpr.size(); ++k) w(k) = altpr(k) / total;
  return w;
}

// Moments (class means and within-class mean square) of one column of values.
void column_moments(const Column& col, int k_classes, FArray<double>& xmean, double& mse) {
  const int n = static_cast<int>(col.x.size());
  FArray<double> one(n, 1, 0.0);
  for (int i = 1; i <= n; ++i) one(i, 1) = col.x[static_cast<std::size_t>(i - 1)];
  int m = 0;
  for (int c : col.noc) m += c > 0;
  Moments mom;
  meanss(one, col.y, col.noc.span(), m, mom);
  xmean.assign(k_classes, 0.0);
  for (int k = 1; k <= k_classes; ++k) xmean(k) = mom.xmean(k, 1);
  mse = mom.mse(1);
}

void fit_alternate(const Init& in, const Traits& tr, const NodeSample& node, SplitResult& s) {
  const int k_classes = in.nclass;
  const Column col =
      column_over(node, s.alt_var, k_classes, true, tr.fit == FitSet::complete, in.nvar);
  const FArray<double> w = class_weights(node, col.noc, true);
  FArray<double> xmean;
  double mse = 0.0;
  column_moments(col, k_classes, xmean, mse);
  if (!ldfuni(col.x, mse, xmean.span(), w.span(), col.noc.span(), s.coef5)) {
    s.alt_var = s.var;
    s.c5 = s.c;
    s.coef5.assign(k_classes, 2, 0.0);
    s.crimcord5.fill(0.0);
  }
}

// The coordinate of a case's category; 0 for a code that is no category.
double coordinate_of(const FArray<double>& a, double code) {
  const long j = round_to_long(code);
  return j >= 1 && j <= a.size() ? a(j) : 0.0;
}

// Fits the main split on the chosen variable (mom: the tests' moments);
// false when the discriminant fails.
bool fit_main(const Init& in, const Traits& tr, Member member, const NodeSample& node,
              const Moments& mom, SplitResult& s) {
  const int k_classes = in.nclass;
  const int p = in.nvar;
  // The cases the split is fitted on.
  const bool subset = tr.fit != FitSet::all;
  Column col = column_over(node, s.var, k_classes, tr.fit == FitSet::available,
                           tr.fit == FitSet::complete, p);
  const FArray<double> w = class_weights(node, col.noc, subset);
  FArray<double> xmean(k_classes, 0.0);
  double mse = 0.0;
  Coordinates co;  // categorical split variable: the coordinate of each category
  if (s.c > 0) {
    const int numcat = in.numcat(s.c);
    if (member == Member::c0) {
      co = crim1(col.x, col.y, col.noc.span(), numcat);
    } else if (subset) {
      co = crim2(col.x, col.y, col.noc.span(), {}, numcat);
    } else {
      // Fitted on the cases where the variable is present, applied to all.
      Column fit = column_over(node, s.var, k_classes, true, false, p);
      co = crim2(fit.x, fit.y, fit.noc.span(), col.x, numcat);
    }
    xmean = co.xmean;
    mse = co.mse;
  } else {
    for (int k = 1; k <= k_classes; ++k) xmean(k) = mom.xmean(k, s.var);
    mse = mom.mse(s.var);
  }

  FArray<double> coef;
  std::vector<int> fit_py(col.x.size(), k_classes);
  if (s.test == 'F') {
    const BoxCoxResult bc = boxcox(col.x, col.y, mse, xmean.span(), col.noc.span(), in.varsel);
    if (!ldfuni(col.x, mse, xmean.span(), w.span(), col.noc.span(), coef)) {
      return false;
    }
    splitpt(coef, col.x, col.noc.span(), col.y, s.cutpt.span(), fit_py);
    backtran(s.cutpt.span(), bc.lambda, bc.shift);
    if (s.c > 0) catsplit(co.a.span(), s.cutpt.span(), s.ncutcat, s.cutcat);
  } else {
    const double g = s.gmean;
    for (double& v : col.x) v = std::fabs(v - g);
    column_moments(col, k_classes, xmean, mse);
    if (!ldfuni(col.x, mse, xmean.span(), w.span(), col.noc.span(), coef)) {
      return false;
    }
    splitpt(coef, col.x, col.noc.span(), col.y, s.cutpt.span(), fit_py);
  }

  if (!subset) {
    for (int i = 1; i <= node.n; ++i) s.py(i) = fit_py[static_cast<std::size_t>(i - 1)];
    return true;
  }
  // Every case of the node goes by the points found on the subset.
  if (node.fill_split_variable) node.fill_split_variable(s.var);
  std::vector<double> all(static_cast<std::size_t>(node.n));
  for (int i = 1; i <= node.n; ++i) {
    const double v = node.xdat(i, s.var);
    double& value = all[static_cast<std::size_t>(i - 1)];
    if (s.c > 0)
      value = coordinate_of(co.a, v);
    else
      value = s.test == 'L' ? std::fabs(v - s.gmean) : v;
  }
  getpy(s.cutpt.span(), all, s.py.span());
  return true;
}

}  // namespace

bool tests_on_present_values(Member member) {
  const Traits tr = traits_of(member);
  return tr.fit != FitSet::complete && tr.tests != Tests::common;
}

bool reads_filled_split_variable_only(Member member) {
  const Traits tr = traits_of(member);
  return tr.fit == FitSet::available && tr.tests != Tests::common && tr.levene == Levene::select6;
}

SplitResult classify(Member member, const NodeSample& node) {
  const Init& in = init();
  const Traits tr = traits_of(member);
  const int k_classes = in.nclass;
  const int p = in.nvar;

  SplitResult s;
  s.cutpt.assign(k_classes - 1, kLowGuard);
  s.py.assign(node.n, k_classes);
  s.coef5.assign(k_classes, 2, 0.0);
  s.crimcord5.assign(in.ncat > 0 ? in.largest_numcat() : 1, 0.0);

  TestSet complete;
  if (tr.fit == FitSet::complete) {
    complete = complete_cases(node, p, k_classes);
    if (complete.m < 2 || complete.n <= complete.m) {
      s.success = false;
      s.py.fill(0);
      return s;
    }
  }
  const TestView view =
      tr.fit == FitSet::complete
          ? TestView{complete.x, complete.y, complete.mis, complete.noc, complete.m}
          : TestView{node.xdat, node.ydat, node.misind, node.noc, node.m, node.present_moments};
  Moments mom;
  const Choice ch = choose_variable(in, tr, view, mom);
  s.var = ch.var;
  s.test = ch.test;
  s.c = ordinal_of(in, s.var);
  s.gmean = mom.gmean.size() >= s.var && s.var > 0 ? mom.gmean(s.var) : 0.0;

  if (tr.alternate) {
    s.alt_var = alternate_of(in, ch);
    if (s.alt_var == 0) s.alt_var = s.var;
    s.c5 = ordinal_of(in, s.alt_var);
  }

  // The alternate split shares nothing with the main one: they are fitted
  // side by side.
  bool fitted = true;
  fork_join(tr.alternate ? 2 : 1, [&](std::ptrdiff_t task) {
    if (task == 1)
      fit_alternate(in, tr, node, s);
    else
      fitted = fit_main(in, tr, member, node, mom, s);
  });
  if (!fitted) s.success = false;
  return s;
}

}  // namespace vardel

namespace vardel {

namespace {

// The node record's view of an exhaustive split.
SplitResult from_exhaust(const Init& in, ExhaustResult&& e, int cases) {
  SplitResult s;
  s.cutpt.assign(in.nclass - 1, kLowGuard);
  s.coef5.assign(in.nclass, 2, 0.0);
  s.crimcord5.assign(in.ncat > 0 ? in.largest_numcat() : 1, 0.0);
  s.success = e.found;
  s.var = e.var;
  s.c = e.c;
  s.py = std::move(e.py);
  if (s.py.size() != cases) s.py.assign(cases, 2);
  if (e.c > 0) {
    s.ncutcat = std::move(e.ncutcat);
    s.cutcat = std::move(e.cutcat);
  } else if (e.found) {
    s.cutpt(1) = e.cutpt;
  }
  return s;
}

}  // namespace

SplitResult exhaust0(const NodeSample& node) {
  const Init& in = init();
  const Traits tr{FitSet::available, Tests::ranked, Levene::select6, false};
  Moments mom;
  const Choice ch = choose_variable(
      in, tr, TestView{node.xdat, node.ydat, node.misind, node.noc, node.m, node.present_moments},
      mom);
  const double gmean = ch.var > 0 && ch.var <= mom.gmean.size() ? mom.gmean(ch.var) : 0.0;
  ExhaustResult e;
  if (ch.test == 'L') {
    // Searched on the absolute deviations from the variable's mean.
    std::vector<double> dev(static_cast<std::size_t>(node.n));
    const std::span<const double> values = node.xdat.column(ch.var);
    for (std::size_t i = 0; i < dev.size(); ++i) dev[i] = std::fabs(values[i] - gmean);
    // The search reads the chosen column alone: a view that shows the
    // deviations as every column will do.
    const FMatrixView<const double> x(dev.data(), node.n, node.xdat.extent2(), 0);
    e = exhaust(x, node.ydat.span(), node.misind, ch.var, node.csize.span(), node.prob.span());
  } else {
    e = exhaust(node.xdat, node.ydat.span(), node.misind, ch.var, node.csize.span(),
                node.prob.span());
  }
  SplitResult s = from_exhaust(in, std::move(e), node.n);
  s.test = ch.test;
  s.gmean = gmean;
  return s;
}

SplitResult exhaust_all(const NodeSample& node) {
  const Init& in = init();
  SplitResult s = from_exhaust(
      in, exhaust(node.xdat, node.ydat.span(), node.misind, 0, node.csize.span(), node.prob.span()),
      node.n);
  if (s.var > 0 && s.c == 0) {
    double sum = 0.0;  // the variable's plain mean over the node's cases
    for (int i = 1; i <= node.n; ++i) sum += node.xdat(i, s.var);
    s.gmean = node.n > 0 ? sum / node.n : 0.0;
  }
  return s;
}

}  // namespace vardel
