// exhaust: the two-class split of a node by a search over every candidate
// split for the least weighted Gini impurity.
//
// Input: xdat, the node's n by P values (missing cells already filled with the
// node means or modes); ydat, the class of each case, counted as class 1 or
// not; misind, n by P, 'y' where the cell was missing; var, 0 to search every
// column in column order, otherwise the one column to search; csize and prob,
// two entries each, the class counts of the sample and the priors. Predictor
// types, numcat and the costs are the run's (module init).
//
// A candidate split puts the present cases of its variable on two sides; with
// pjlt of each side from getpjlt, nL and nR the present cases on each side and
// n the cases of the node, its impurity is
//   pjlt_L(1) pjlt_L(2) nL / n + pjlt_R(1) pjlt_R(2) nR / n.
// Missing cells take part in no count.
//
// Numerical column: the candidates are the midpoints between consecutive
// distinct present values; cases at or below go left.
// Categorical column: the categories are ordered by the weighted share of
// class 1 among their cases (0 for an empty category), and the candidates are
// the numcat - 1 boundaries of that order, the categories before a boundary
// going left. A boundary with an empty side has a NaN impurity and is never
// taken.
//
// Ties: a candidate replaces the best only if strictly smaller, so the lowest
// midpoint, the first boundary and the first column win among equals. The
// best categorical split wins over the best numerical one when less or equal.
//
// Output: found is false when no column has a candidate; then var, c are 0 and
// every py is 2. Otherwise var and c name the split; a numerical split gives
// cutpt, a categorical split ncutcat and cutcat; py is 1 for the cases sent
// left and 2 for the rest, every case sent by its (filled) value. cutpt is left
// at 0 and ncutcat, cutcat empty when they do not apply.
//
// A category code outside 1..numcat in a present cell ends the run.
#pragma once

#include <span>

#include "numerics/farray.hpp"

namespace vardel {

struct ExhaustResult {
  bool found = false;   // false: no candidate; every py is 2
  int var = 0;          // split variable (column), 0 when none
  int c = 0;            // ordinal among categorical predictors, 0 if numerical
  double cutpt = 0.0;   // numerical split point (cases at or below go left, py 1)
  FArray<int> ncutcat;  // categorical: 2 counts: left categories, then the rest
  FArray<int> cutcat;   // categorical: numcat(c) codes: the left set in search order, then the
                        // right set in the same order
  FArray<int> py;       // n subnodes 1 or 2
};

ExhaustResult exhaust(FMatrixView<const double> xdat, std::span<const int> ydat,
                      FMatrixView<const char> misind, int var, std::span<const int> csize,
                      std::span<const double> prob);

}  // namespace vardel
