#include "split/exhaust.hpp"

#include <array>
#include <cmath>
#include <iostream>
#include <utility>

#include "numerics/dsort.hpp"
#include "numerics/indexx.hpp"
#include "numerics/round_to_long.hpp"
#include "run/init.hpp"
#include "run/stop.hpp"
#include "split/getpjlt.hpp"
#include "split/guards.hpp"

namespace vardel {
namespace {

// Cases of class 1 and of the other class on one side of a split.
using SideCounts = std::array<int, 2>;

// Best impurity before any candidate has been seen: the largest double, which
// no real impurity reaches.
constexpr double kNone = kHighGuard;

// The impurity of a candidate split of one node. The class weights, csize and
// the node size are those of the node and are set up once.
class SplitImpurity {
 public:
  SplitImpurity(std::span<const int> csize, std::span<const double> prob, int n)
      : csize_(csize), weights_(class_weights(prob)), n_(static_cast<double>(n)) {}

  double operator()(const SideCounts& left, const SideCounts& right) {
    return side(left) + side(right);
  }
  const FArray<double>& weights() const { return weights_; }

 private:
  double side(const SideCounts& counts) {
    getpjlt_weighted(counts, csize_, weights_.span(), pjlt_);
    const double cases = static_cast<double>(counts[0] + counts[1]);
    return pjlt_[0] * pjlt_[1] * cases / n_;
  }

  std::span<const int> csize_;
  FArray<double> weights_;
  double n_;
  std::array<double, 2> pjlt_{};
};

int side_of(int y) {
  return y == 1 ? 0 : 1;
}

// The best midpoint of one numerical column: its impurity (kNone without a
// midpoint) and the point. x1 and side1 are work arrays of n entries.
struct NumericBest {
  double imp = kNone;
  double cut = 0.0;
};

NumericBest search_numeric(std::span<const double> col, std::span<const char> mis,
                           std::span<const int> ydat, SplitImpurity& impurity, FArray<double>& x1,
                           FArray<double>& side1) {
  const int n = static_cast<int>(col.size());
  int m = 0;
  SideCounts total{0, 0};
  for (int i = 0; i < n; ++i) {
    if (mis[i] == 'y') continue;
    ++m;
    x1(m) = col[i];
    side1(m) = static_cast<double>(side_of(ydat[i]));
    ++total[side_of(ydat[i])];
  }
  NumericBest best;
  if (m < 2) return best;  // one value at most: no midpoint
  dsort(x1.span().first(m), side1.span().first(m));

  // The midpoints ascend, so the cases at or below each one are those below
  // the previous one plus a further run of the sorted values: one sweep gives
  // the same counts as counting afresh for every midpoint.
  SideCounts left{0, 0};
  int next = 1;
  for (int i = 1; i < m; ++i) {
    if (!(x1(i) < x1(i + 1))) continue;
    const double t = 0.5 * (x1(i) + x1(i + 1));
    while (next <= m && x1(next) <= t) {
      ++left[static_cast<int>(side1(next))];
      ++next;
    }
    const SideCounts right{total[0] - left[0], total[1] - left[1]};
    const double imp = impurity(left, right);
    if (imp < best.imp) {
      best.imp = imp;
      best.cut = t;
    }
  }
  return best;
}

// The best boundary of one categorical column: its impurity (kNone without
// one), the categories in search order and how many of them go left.
struct CategoricalBest {
  double imp = kNone;
  FArray<int> order;
  int nleft = 0;
};

[[noreturn]] void bad_code(int column, double value) {
  std::cout << "Category code " << value << " of variable " << column
            << " is outside its range; cannot split." << '\n';
  stop_run(1);
}

CategoricalBest search_categorical(std::span<const double> col, std::span<const char> mis,
                                   std::span<const int> ydat, int column, int numcat,
                                   SplitImpurity& impurity) {
  const int n = static_cast<int>(col.size());
  FArray<int> ncatclass1(numcat, 0);
  FArray<int> ncatclass2(numcat, 0);
  for (int i = 0; i < n; ++i) {
    if (mis[i] == 'y') continue;
    const long code = round_to_long(col[i]);
    if (code < 1 || code > numcat) bad_code(column, col[i]);
    if (ydat[i] == 1)
      ++ncatclass1(code);
    else
      ++ncatclass2(code);
  }

  // Weighted share of class 1 in each category.
  const FArray<double>& a = impurity.weights();
  FArray<double> pxbl(numcat, 0.0);
  for (int j = 1; j <= numcat; ++j) {
    if (ncatclass1(j) + ncatclass2(j) == 0) continue;
    const double n1 = static_cast<double>(ncatclass1(j));
    const double n2 = static_cast<double>(ncatclass2(j));
    pxbl(j) = a(1) * n1 / (a(2) * n2 + a(1) * n1);
  }
  CategoricalBest best;
  best.order.assign(numcat, 0);
  indexx(pxbl.span(), best.order.span());

  SideCounts total{0, 0};
  for (int j = 1; j <= numcat; ++j) {
    total[0] += ncatclass1(j);
    total[1] += ncatclass2(j);
  }
  SideCounts left{0, 0};
  for (int b = 1; b < numcat; ++b) {
    const int j = best.order(b);
    left[0] += ncatclass1(j);
    left[1] += ncatclass2(j);
    const SideCounts right{total[0] - left[0], total[1] - left[1]};
    const double imp = impurity(left, right);
    if (imp < best.imp) {
      best.imp = imp;
      best.nleft = b;
    }
  }
  return best;
}

}  // namespace

ExhaustResult exhaust(FMatrixView<const double> xdat, std::span<const int> ydat,
                      FMatrixView<const char> misind, int var, std::span<const int> csize,
                      std::span<const double> prob) {
  const Init& in = init();
  const int n = static_cast<int>(xdat.extent1());
  const int nvars = static_cast<int>(xdat.extent2());
  SplitImpurity impurity(csize, prob, n);

  int numvar = 0;
  NumericBest num;
  int catvar = 0;
  int catord = 0;
  CategoricalBest cat;

  FArray<double> x1(n, 0.0);
  FArray<double> side1(n, 0.0);
  const int first = var == 0 ? 1 : var;
  const int last = var == 0 ? nvars : var;
  int c = 0;  // categorical columns before the one being searched
  for (int j = 1; j < first; ++j) c += in.vtype(j) == 'c';
  for (int j = first; j <= last; ++j) {
    if (in.vtype(j) == 'c') {
      ++c;
      CategoricalBest found =
          search_categorical(xdat.column(j), misind.column(j), ydat, j, in.numcat(c), impurity);
      if (found.imp < cat.imp) {
        cat = std::move(found);
        catvar = j;
        catord = c;
      }
    } else {
      const NumericBest found =
          search_numeric(xdat.column(j), misind.column(j), ydat, impurity, x1, side1);
      if (found.imp < num.imp) {
        num = found;
        numvar = j;
      }
    }
  }

  ExhaustResult r;
  r.py.assign(n, 2);
  if (cat.imp == kNone && num.imp == kNone) return r;
  r.found = true;
  if (cat.imp <= num.imp) {
    r.var = catvar;
    r.c = catord;
    const int numcat = static_cast<int>(cat.order.size());
    r.ncutcat.assign(2, 0);
    r.ncutcat(1) = cat.nleft;
    r.ncutcat(2) = numcat - cat.nleft;
    r.cutcat = cat.order;
    FArray<char> goes_left(numcat, 'n');
    for (int b = 1; b <= cat.nleft; ++b) goes_left(cat.order(b)) = 'y';
    const auto col = xdat.column(catvar);
    for (int i = 1; i <= n; ++i) {
      const long code = round_to_long(col[i - 1]);
      if (code >= 1 && code <= numcat && goes_left(code) == 'y') r.py(i) = 1;
    }
  } else {
    r.var = numvar;
    r.cutpt = num.cut;
    const auto col = xdat.column(numvar);
    for (int i = 1; i <= n; ++i) {
      if (col[i - 1] <= num.cut) r.py(i) = 1;
    }
  }
  return r;
}

}  // namespace vardel
