// The Levene test, a second chance for numerical predictors whose classes
// differ in spread rather than in mean: anova1, select2, select4, select6.
//
// anova1(d, ydat, noc): one-way analysis of variance of the values d (one per
//   case) across the classes ydat (1..K), noc being the K class counts of
//   these cases. Returns F: 0 if the between mean square is below kTiny (or
//   fewer than 2 classes have cases, or n - m is 0, leaving no within degrees
//   of freedom); kHugeF if the within mean square is below kTiny; else the
//   ratio of the two.
// select2(xdat, ydat, noc, gmean, vtype): for each numerical column of xdat in
//   order, anova1 on d(i) = |x(i) - gmean(j)|, the absolute deviation from the
//   variable's grand mean (not its class mean). The largest F wins, the
//   earlier column on a tie; p is fprob's for m - 1 and n - m degrees of
//   freedom, 0 if F is kHugeF and 1.0 on a failure status.
// select4: the same deviations, but each variable gets its own p and the
//   smallest p wins under displaces() (pick.hpp).
// select6(xdat, misind, ydat, nclass, gmean, vtype): as select4 over the
//   present cells of each variable only, with that variable's own counts of
//   cases, classes and class members; a variable with fewer than 2 present
//   cases is skipped. gmean should then be the one of meanss1.
// With no numerical predictor tested, the result is Pick{} (var 0, p 1.0).
//
// Usage: after select1 (or select3, select5) and the chi-square test have not
// found a significant variable, call the Levene test of the same member with
// the gmean of its moments.
#pragma once

#include <span>

#include "numerics/farray.hpp"
#include "split/pick.hpp"

namespace vardel {

double anova1(std::span<const double> d, std::span<const int> ydat, std::span<const int> noc);

Pick select2(FMatrixView<const double> xdat, std::span<const int> ydat, std::span<const int> noc,
             std::span<const double> gmean, std::span<const char> vtype);
Pick select4(FMatrixView<const double> xdat, std::span<const int> ydat, std::span<const int> noc,
             std::span<const double> gmean, std::span<const char> vtype);
Pick select6(FMatrixView<const double> xdat, FMatrixView<const char> misind,
             std::span<const int> ydat, int nclass, std::span<const double> gmean,
             std::span<const char> vtype);

}  // namespace vardel
