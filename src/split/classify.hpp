// The classify family: one split of a node by the one-dimensional method.
//
// Each member chooses the split variable by tests of association between
// each predictor and the class (F test for numerical, chi-square for
// categorical predictors, then a Levene test on absolute deviations), and
// places the split by discriminant analysis after a Box-Cox transform. The
// members differ in the cases they fit on and in whether they keep an
// alternate variable for cases whose split value is missing:
//
//   c0   all cases of the node
//   c1   complete cases, then every case is sent by the split points
//   c3   for each variable its available cases, then every case is sent
//   c15  as c1, with an alternate variable
//   c25  all cases, with an alternate variable
//   c5   as c3, with an alternate variable
#pragma once

#include "split/node_split.hpp"

namespace vardel {

enum class Member { c0, c1, c3, c15, c25, c5 };

SplitResult classify(Member member, const NodeSample& node);
// Whether the member's tests read the moments over the present values of all
// the node's cases, which NodeSample::present_moments may hand it.
bool tests_on_present_values(Member member);
// Whether the member reads no filled cell but those of its split variable:
// its tests, the Levene test and the fit take present values only, and only
// the subnode of a case whose split variable is missing reads a filled cell.
bool reads_filled_split_variable_only(Member member);

// Two classes, split by exhaustive search: exhaust0 chooses the variable by
// the tests of the 1D method (on each variable's available cases, with the
// alternate-style ranking) and searches it alone; exhaust_all searches every
// variable. Missing cells must already hold the node's class centres.
SplitResult exhaust0(const NodeSample& node);
SplitResult exhaust_all(const NodeSample& node);

}  // namespace vardel
