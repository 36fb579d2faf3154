// Overall and class-wise centres of each predictor over a node's cases: the
// mean of the present values of a numerical predictor, the most frequent
// present code of a categorical one (the smallest code among equals). A
// predictor with no present value has centre 0.
//
// getgrand: grand(j) over all n cases.
// getmeanmode: grand, and meanmode(k, j) over the cases of class k, for each
//   class with cases (classes without cases keep 0). With `only` > 0 just
//   that predictor's centres are worked out (the others stay 0): all a node
//   needs when it fills no missing cells.
// meanmode_sub: as getmeanmode, then fills each missing cell of xdat with the
//   centre of its case's class (0 where that class has no present value).
// fill_node_missing: the same filling, with the centres worked out only for
//   the predictors that have a missing cell among the n cases; a numerical
//   predictor's class means are taken from `present` (meanss1 of the same
//   cases, whose class means are these centres) when given. With `only` > 0
//   just that predictor's cells are filled.
// fill_missing_cells: that filling alone, from centres getmeanmode has given
//   for the same cases.
#pragma once

#include <span>

#include "numerics/farray.hpp"
#include "split/class_moments.hpp"

namespace vardel {

// Whether missing flags hold the value v (a search that takes many bytes a
// step).
bool holds_flag(std::span<const char> flags, char v);

void getgrand(FMatrixView<const double> xdat, FMatrixView<const char> misind, int n,
              FArray<double>& grand);

void getmeanmode(FMatrixView<const double> xdat, std::span<const int> cdat,
                 FMatrixView<const char> misind, std::span<const int> noc, int n,
                 FArray<double>& grand, FArray<double>& meanmode, int only = 0);

void meanmode_sub(FMatrixView<double> xdat, std::span<const int> cdat,
                  FMatrixView<const char> misind, std::span<const int> noc, int n,
                  FArray<double>& grand, FArray<double>& meanmode);

void fill_node_missing(FMatrixView<double> xdat, std::span<const int> cdat,
                       FMatrixView<const char> misind, std::span<const int> noc, int n,
                       const Moments* present = nullptr, int only = 0);

void fill_missing_cells(FMatrixView<double> xdat, std::span<const int> cdat,
                        FMatrixView<const char> misind, int n, const FArray<double>& meanmode);

}  // namespace vardel
