// Coordinates of a categorical variable: crim1, crim2 and crim.
//
// Each category of a categorical variable gets one real coordinate, the first
// canonical direction of a discriminant analysis on the category's dummy
// variables, so that the categories that separate the classes best lie
// furthest apart. The variable's column is then replaced by the coordinate of
// each case, and the numerical split machinery runs on it.
//
// The fit, on the n cases of a column x with classes ydat (1..K) and class
// counts noc (K of them, summing to n), for C = numcat categories:
//   1. vcount(j, k) counts the cases of class k with category j; vbar(j, k) =
//      vcount(j, k) / noc(k) and vmean(j) = t(j) / n, t(j) the cases of j.
//   2. If one category holds every case, or the dummy matrix below has rank 0,
//      there is nothing to fit: every coordinate is 0, the class means are all
//      the first value of x, the variance is 0, and no column is changed.
//   3. v (C by n) is the centred dummy matrix: (n - t(j)) / n where case i has
//      category j, -t(j) / n elsewhere; a category without cases has a zero row.
//   4. v = q diag(d) w' by dsvdc with left vectors only. The C-dimensional
//      side is the row side of v, so dsvdc's left vectors are the ones wanted
//      and it never forms anything larger than C by C besides v itself.
//      All min(C + 1, n) values in d are ranked with indexx and the ranking
//      reversed (largest first; ties in the reverse of indexx's order). The
//      rank r counts the leading values above 0 and above
//      d_max * max(C, n) * eps.
//   5. u(:, i) = q(:, indx(i)) / d(indx(i)) for i = 1..r.
//   6. gfu = u' g (r by n), where g holds for each class k with cases noc(k)
//      equal columns vbar(:, k) - vmean, the classes in class order (not in
//      case order). Only the K distinct columns are multiplied out; the
//      repeats are copies, which gives the same numbers as the full product.
//   7. e is the left vector of gfu for its largest singular value (dsvdc's
//      first left vector), and a = u e, one coordinate per category.
// A category without cases in the column has a zero row in u and so a
// coordinate of 0, up to the rounding of the decomposition.
//
// Codes are doubles rounded half away from zero. A code outside 1..numcat (a
// missing cell holding 0) belongs to no category: its case stays in the fit
// (it counts in n and in its class) but adds to no category's row, and its
// coordinate is 0, the projection of its all-zero dummy vector.
//
// The sign of the coordinates is that of dsvdc's vectors; it carries no
// meaning but is stored and printed, so it is kept as computed.
//
// Sums run from 0.0 in index order (case order for the class means and the
// variance). dsvdc's convergence flag is not reported: the values it gives
// are used as they stand.
#pragma once

#include <span>

#include "numerics/farray.hpp"

namespace vardel {

struct Coordinates {
  FArray<double> a;      // numcat coordinates, one per category code
  double mse = 0.0;      // within-class variance of the coordinate column
  FArray<double> xmean;  // K class means of the coordinate column
};

// x: the chosen variable's codes for the node's cases (n values); replaced by
// coordinates. mse is the within-class sum of squares over n - m, m the
// classes with cases (the plain sum when n = m); a class without cases has
// mean 0. K = noc.size().
Coordinates crim1(std::span<double> x, std::span<const int> ydat, std::span<const int> noc,
                  int numcat);

// Fit on the subset column x_fit (its classes ydat_fit, counts noc_fit), then
// replace the codes of x_all (all node cases) by the same coordinates too.
// Means and mse are those of the fitted subset. When there is nothing to fit
// neither column is changed.
Coordinates crim2(std::span<double> x_fit, std::span<const int> ydat_fit,
                  std::span<const int> noc_fit, std::span<double> x_all, int numcat);

// Every categorical predictor c of xdat (n = ydat.size() rows by P, the
// predictor in column catpos(c)) in turn: its column replaced by coordinates,
// and crimcord (reshaped to ncat by the largest numcat, zero-filled beyond
// numcat(c)) given the coordinates in row c. ncat, catpos and numcat come
// from init().
void crim(FArray<double>& xdat, std::span<const int> ydat, std::span<const int> noc,
          FArray<double>& crimcord);

}  // namespace vardel
