// The chi-square tests of the categorical predictors: chi_sq, chi_sq1 and
// chi_sq5.
//
// Input: xdat, the node's n by P data, a categorical column holding category
// codes 1..numcat(c) as doubles (rounded half away from zero); ydat, the class
// 1..K of each case; catpos(c), the column of the c-th categorical predictor,
// and numcat(c), its number of categories, for c = 1..ncat.
//
// For each categorical variable: the K by numcat table O of class against
// code; column totals t; expected counts E(k, j) = noc(k) t(j) / n worked in
// single precision (the product made a float, divided by n as a float) and
// then widened; X = the sum, category by category and class by class within,
// of (O - E)^2 / (kTiny + E), so empty cells add 0; degrees of freedom
// (m - 1)(q - 1) with q the non-empty columns and m the classes present;
// p = 1 - chi_squared(df, X).
//
// chi_sq(xdat, ydat, noc, m, catpos, numcat): every case counts, noc and m are
//   the node's. The smallest p wins under displaces() (pick.hpp): once two
//   p-values have underflowed, the larger X decides; ties keep the earlier.
// chi_sq1(xdat, misind, ydat, nclass, catpos, numcat): as chi_sq, counting for
//   each variable only the cases where it is present ('n' in misind), with n,
//   noc and m of those cases.
// chi_sq5: the p and X of every categorical variable as in chi_sq1, ranked by
//   rank_first_two (pick.hpp) into the main variable and the alternate.
// The result's var is a column of xdat (catpos of the chosen ordinal). With
// ncat = 0, chi_sq and chi_sq1 return Pick{} (var 0, p 1.0).
//
// A code outside 1..numcat(c) in a counted cell ends the run: the data were
// checked when read, so that is a fault of the caller.
//
// Usage: call chi_sq (or the sibling of the member) once per node when there
// are categorical predictors, beside the F test of the numerical ones.
#pragma once

#include <span>

#include "numerics/farray.hpp"
#include "split/pick.hpp"

namespace vardel {

Pick chi_sq(FMatrixView<const double> xdat, std::span<const int> ydat, std::span<const int> noc,
            int m, std::span<const int> catpos, std::span<const int> numcat);
Pick chi_sq1(FMatrixView<const double> xdat, FMatrixView<const char> misind,
             std::span<const int> ydat, int nclass, std::span<const int> catpos,
             std::span<const int> numcat);
TwoBest chi_sq5(FMatrixView<const double> xdat, FMatrixView<const char> misind,
                std::span<const int> ydat, int nclass, std::span<const int> catpos,
                std::span<const int> numcat);

}  // namespace vardel
