// Coordinates of a categorical variable (see crim.hpp).
#include "split/crim.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "numerics/dsvdc.hpp"
#include "numerics/indexx.hpp"
#include "numerics/round_to_long.hpp"
#include "run/init.hpp"

namespace vardel {

namespace {

// Double precision epsilon, scaling the rank tolerance of the dummy matrix.
constexpr double kEps = 2.220446049250313e-16;
// dsvdc job: the left vectors min(rows, columns) of them, no right vectors.
constexpr int kLeftVectors = 20;

// Working arrays of one fit. crim keeps one set for all its columns so that
// the large C by n and r by n blocks are allocated once.
struct CrimWork {
  FArray<int> code;        // n category of each case, 0 for none
  FArray<int> vcount;      // C by K
  FArray<double> vbar;     // C by K
  FArray<double> vmean;    // C
  FArray<double> v;        // C by n centred dummy matrix, destroyed by dsvdc
  FArray<double> d;        // min(C + 1, n) singular values of v
  FArray<double> evec;     // n superdiagonal work of dsvdc
  FArray<double> q;        // C by min(C, n) left vectors of v
  FArray<double> rv;       // right vectors, never asked for
  FArray<int> indx;        // ranking of d, largest first
  FArray<double> u;        // C by r scaled left vectors
  FArray<double> fsub;     // r inverse singular values
  FArray<double> gk;       // C by K distinct centroid columns of g
  FArray<double> ugk;      // r by K those columns transformed
  FArray<double> gfu;      // r by n transformed centroids, destroyed by dsvdc
  FArray<double> d2;       // singular values of gfu
  FArray<double> q2;       // left vectors of gfu
  FArray<double> inside;   // C centred dummy entry of a case in the category
  FArray<double> outside;  // C centred dummy entry of a case outside it
};

// Category of a code: its value rounded half away from zero when that lies in
// 1..numcat, otherwise 0.
int category_of(double x, int numcat) {
  if (!(x >= 0.5 && x < numcat + 0.5)) return 0;
  return static_cast<int>(round_to_long(x));
}

// Fits the coordinates of column x into a (numcat entries). Returns false,
// with a all zero, when there is nothing to fit (a single category, or a
// dummy matrix of rank 0).
bool fit(std::span<const double> x, std::span<const int> ydat, std::span<const int> noc, int numcat,
         CrimWork& w, FArray<double>& a) {
  const int n = static_cast<int>(x.size());
  const int nc = numcat;
  const int nclass = static_cast<int>(noc.size());
  FView<const double> xv(x);
  FView<const int> yv(ydat);
  FView<const int> nocv(noc);
  a.assign(std::max(nc, 0), 0.0);
  if (n == 0 || nc <= 0) return false;

  // Class counts of each category.
  w.code.assign(n, 0);
  w.vcount.assign(nc, nclass, 0);
  for (int i = 1; i <= n; ++i) {
    const int j = category_of(xv(i), nc);
    w.code(i) = j;
    if (j > 0) w.vcount(j, yv(i)) += 1;
  }
  w.vbar.assign(nc, nclass, 0.0);
  for (int k = 1; k <= nclass; ++k) {
    if (nocv(k) <= 0) continue;
    for (int j = 1; j <= nc; ++j) {
      w.vbar(j, k) = static_cast<double>(w.vcount(j, k)) / nocv(k);
    }
  }

  // Category frequencies; a category holding every case ends the fit.
  const double dn = n;
  w.vmean.assign(nc, 0.0);
  w.inside.assign(nc, 0.0);
  w.outside.assign(nc, 0.0);
  for (int j = 1; j <= nc; ++j) {
    int t = 0;
    for (int k = 1; k <= nclass; ++k) t += w.vcount(j, k);
    if (t == n) return false;
    if (t == 0) continue;  // a zero row
    const double dt = t;
    w.vmean(j) = dt / dn;
    w.inside(j) = (dn - dt) / dn;
    w.outside(j) = -dt / dn;
  }

  // The centred dummy matrix, one column per case.
  w.v.assign(nc, n, 0.0);
  for (int i = 1; i <= n; ++i) {
    std::span<double> col = w.v.column(i);
    std::copy(w.outside.begin(), w.outside.end(), col.begin());
    const int j = w.code(i);
    if (j > 0) w.v(j, i) = w.inside(j);
  }

  // Left singular vectors of v, ranked largest first.
  const int nd = std::min(nc + 1, n);
  const int nq = std::min(nc, n);
  w.d.assign(nd, 0.0);
  w.evec.assign(n, 0.0);
  int info = 0;
  dsvdc(w.v, nc, n, w.d.span(), w.evec.span(), w.q, w.rv, kLeftVectors, info);
  w.indx.assign(nd, 0);
  indexx(w.d.span(), w.indx.span());
  std::reverse(w.indx.begin(), w.indx.end());

  // Rank: the leading values above 0 and above the tolerance. Only values
  // with a left vector can count (the extra value of a wide v is 0).
  const double tol = w.d(w.indx(1)) * std::max(nc, n) * kEps;
  int r = 0;
  while (r < nd && w.indx(r + 1) <= nq && w.d(w.indx(r + 1)) > tol && w.d(w.indx(r + 1)) > 0.0) {
    ++r;
  }
  if (r == 0) return false;

  // Left vectors scaled by the inverse singular values.
  w.fsub.assign(r, 0.0);
  w.u.assign(nc, r, 0.0);
  for (int i = 1; i <= r; ++i) {
    w.fsub(i) = 1.0 / w.d(w.indx(i));
    for (int j = 1; j <= nc; ++j) w.u(j, i) = w.q(j, w.indx(i)) * w.fsub(i);
  }

  // gfu = u' g. g has one distinct column per class with cases, repeated
  // noc(k) times, class after class; each distinct column is transformed
  // once and copied.
  w.gk.assign(nc, nclass, 0.0);
  w.ugk.assign(r, nclass, 0.0);
  int ng = 0;
  for (int k = 1; k <= nclass; ++k) {
    if (nocv(k) <= 0) continue;
    ng += nocv(k);
    for (int j = 1; j <= nc; ++j) w.gk(j, k) = w.vbar(j, k) - w.vmean(j);
    for (int l = 1; l <= r; ++l) {
      double sum = 0.0;
      for (int j = 1; j <= nc; ++j) sum = sum + w.u(j, l) * w.gk(j, k);
      w.ugk(l, k) = sum;
    }
  }
  if (ng == 0) return false;  // no class counts: nothing to transform
  std::swap(w.gfu, w.v);      // v is spent: its storage takes gfu
  w.gfu.assign(r, ng, 0.0);
  int col = 0;
  for (int k = 1; k <= nclass; ++k) {
    for (int c = 1; c <= nocv(k); ++c) {
      ++col;
      for (int l = 1; l <= r; ++l) w.gfu(l, col) = w.ugk(l, k);
    }
  }

  // The first left vector of gfu, and the coordinates a = u e.
  w.d2.assign(std::min(r + 1, ng), 0.0);
  w.evec.assign(std::max(ng, 1), 0.0);
  dsvdc(w.gfu, r, ng, w.d2.span(), w.evec.span(), w.q2, w.rv, kLeftVectors, info);
  for (int j = 1; j <= nc; ++j) {
    double sum = 0.0;
    for (int l = 1; l <= r; ++l) sum = sum + w.u(j, l) * w.q2(l, 1);
    a(j) = sum;
  }
  return true;
}

// Replaces each code by its category's coordinate (0 without a category).
void apply(std::span<double> x, const FArray<double>& a) {
  const int nc = static_cast<int>(a.size());
  for (double& xi : x) {
    const int j = category_of(xi, nc);
    xi = j > 0 ? a(j) : 0.0;
  }
}

// Class means and within-class variance of the coordinate column.
void class_moments(std::span<const double> x, std::span<const int> ydat, std::span<const int> noc,
                   Coordinates& out) {
  const int n = static_cast<int>(x.size());
  const int nclass = static_cast<int>(noc.size());
  FView<const double> xv(x);
  FView<const int> yv(ydat);
  FView<const int> nocv(noc);
  FArray<double> sum(nclass, 0.0);
  for (int i = 1; i <= n; ++i) sum(yv(i)) = sum(yv(i)) + xv(i);
  int m = 0;
  for (int k = 1; k <= nclass; ++k) {
    if (nocv(k) <= 0) continue;
    ++m;
    out.xmean(k) = sum(k) / nocv(k);
  }
  double ss = 0.0;
  for (int i = 1; i <= n; ++i) {
    const double dev = xv(i) - out.xmean(yv(i));
    ss = ss + dev * dev;
  }
  out.mse = n > m ? ss / (n - m) : ss;
}

// Fit on x and replace x, giving the result of crim1 and of the fitted part
// of crim2. Returns false, with x unchanged, when there was nothing to fit.
bool fit_and_replace(std::span<double> x, std::span<const int> ydat, std::span<const int> noc,
                     int numcat, CrimWork& w, Coordinates& out) {
  out.xmean.assign(static_cast<int>(noc.size()), 0.0);
  out.mse = 0.0;
  if (!fit(x, ydat, noc, numcat, w, out.a)) {
    if (!x.empty()) out.xmean.fill(x.front());
    return false;
  }
  apply(x, out.a);
  class_moments(x, ydat, noc, out);
  return true;
}

}  // namespace

Coordinates crim1(std::span<double> x, std::span<const int> ydat, std::span<const int> noc,
                  int numcat) {
  CrimWork w;
  Coordinates out;
  fit_and_replace(x, ydat, noc, numcat, w, out);
  return out;
}

Coordinates crim2(std::span<double> x_fit, std::span<const int> ydat_fit,
                  std::span<const int> noc_fit, std::span<double> x_all, int numcat) {
  CrimWork w;
  Coordinates out;
  if (fit_and_replace(x_fit, ydat_fit, noc_fit, numcat, w, out)) apply(x_all, out.a);
  return out;
}

void crim(FArray<double>& xdat, std::span<const int> ydat, std::span<const int> noc,
          FArray<double>& crimcord) {
  const Init& in = init();
  const std::size_t n = ydat.size();
  crimcord.assign(in.ncat, in.largest_numcat(), 0.0);
  CrimWork w;
  FArray<double> a;
  for (int c = 1; c <= in.ncat; ++c) {
    std::span<double> x = xdat.column(in.catpos(c)).first(n);
    if (!fit(x, ydat, noc, in.numcat(c), w, a)) continue;
    apply(x, a);
    for (int j = 1; j <= in.numcat(c); ++j) crimcord(c, j) = a(j);
  }
}

}  // namespace vardel
