// The F tests of the numerical predictors: select1, select3 and select5.
//
// Input: the moments of a node (class_moments.hpp) and vtype, the type 'n' or
// 'c' of each of the P predictors; only the 'n' columns are tested. F of a
// variable is mst / mse with m - 1 and n - m degrees of freedom, m and n being
// the classes and cases its moments were taken over (mom.m_used, mom.n_used),
// and its p-value the upper tail of fprob. F is 0 when mst is below kTiny, and
// also when there are no within-class degrees of freedom (n - m of 0), where
// the test says nothing. A variable with mse below kTiny but not mst separates
// the classes perfectly: F kHugeF, p 0. A p-value for which fprob reports a
// failure status is 1.0.
//
// select1 (moments of meanss, common n and m): the first perfectly separating
//   variable in column order is returned at once with p 0, the rest unseen.
//   Otherwise the largest F wins (a tie keeps the earlier column; a first
//   numerical column of F 0 is chosen when all are 0) and p is that of its F.
// select3 (moments of meanss1, counts per variable): as select1, but each
//   variable gets its own p and the smallest wins under displaces()
//   (pick.hpp): once two p-values have underflowed, the larger F decides.
// select5: F and p of every numerical variable (untested columns keep p 2.0
//   and F 0), ranked by rank_first_two (pick.hpp) into the main variable and
//   the alternate.
//
// With no numerical predictor select1 and select3 return Pick{} (var 0, p 1.0).
//
// Usage: meanss then select1 in the member for complete data; meanss1 then
// select3 or select5 where each variable has its own present cases.
#pragma once

#include <span>

#include "split/class_moments.hpp"
#include "split/pick.hpp"

namespace vardel {

Pick select1(const Moments& mom, std::span<const char> vtype);
Pick select3(const Moments& mom, std::span<const char> vtype);
TwoBest select5(const Moments& mom, std::span<const char> vtype);

// Upper-tail p of an F ratio with m - 1 and n - m degrees of freedom; 1.0 if
// fprob reports any failure status (degrees of freedom of 0 or less, say).
double f_test_p(int m, int n, double f);

}  // namespace vardel
