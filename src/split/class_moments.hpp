// Class moments of the predictors in a node: meanss and meanss1.
//
// Inputs: xdat, the node's n by P data (case i, variable j); ydat, the class
// 1..K of each case; for meanss the class counts noc (K of them) and the
// number m of classes with cases; for meanss1 the n by P indicator misind
// ('y' where the value is missing) and K.
// Output, in mom (reshaped to K by P; its storage is reused between calls):
//   xmean(k, j)  mean of variable j in class k, 0 for a class without cases
//   gmean(j)     plain mean of variable j
//   mst(j)       between-class mean square: the sum over classes of
//                noc(k) (xmean(k, j) - gmean(j))^2, over m - 1
//   mse(j)       within-class mean square: the sum over cases of
//                (x(i, j) - xmean(y(i), j))^2, over n - m
//   tss(j)       total mean square: the sum over cases of (x(i, j) - gmean(j))^2,
//                over n - 1
//   n_used(j), m_used(j), noc_used(k, j): the cases, classes present and class
//                counts that the moments of variable j were taken over.
// meanss takes every case for every variable. meanss1 takes for each variable
// only the cases where it is present, so n, m and noc belong to the variable.
// A mean square without degrees of freedom (divisor 0 or less) is 0, and so
// are all moments of a variable without a present case.
//
// Usage: call meanss (or meanss1) once per node, then hand mom to select1,
// select3 or select5, and its gmean to the Levene tests. After changing one
// column of xdat, meanss_column (or meanss1_column) recomputes the moments of
// that column alone in a mom already filled for the same data shape.
//
// The tests read every moment but tss: growth asks for Squares::tests_only,
// which leaves tss untouched and saves a third of the second pass.
//
// Sums run from 0.0 in case order (class sums likewise, each in case order);
// sums over classes run in class order.
#pragma once

#include <span>
#include <vector>

#include "numerics/farray.hpp"

namespace vardel {

struct Moments {
  FArray<double> xmean;  // K by P
  FArray<double> gmean;  // P
  FArray<double> mst;    // P
  FArray<double> mse;    // P
  FArray<double> tss;    // P
  FArray<int> n_used;    // P
  FArray<int> m_used;    // P
  FArray<int> noc_used;  // K by P
};

enum class Squares { with_total, tests_only };

void meanss(FMatrixView<const double> xdat, std::span<const int> ydat, std::span<const int> noc,
            int m, Moments& mom, Squares squares = Squares::with_total);
void meanss_column(FMatrixView<const double> xdat, std::span<const int> ydat,
                   std::span<const int> noc, int m, int j, Moments& mom);

void meanss1(FMatrixView<const double> xdat, FMatrixView<const char> misind,
             std::span<const int> ydat, int nclass, Moments& mom,
             Squares squares = Squares::with_total);
// The missing cells of a node's table, column by column: the rows (from 1)
// where misind is 'y'.
struct ZeroedCells {
  FMatrixView<double> x;
  std::span<const std::vector<int>> missing;  // P lists
};
// meanss1 (without tss) of a table whose missing cells hold +0.0, from the
// node's class counts noc: the same moments bit for bit, in fewer steps. On
// return each missing cell holds the mean of its class's present values in
// its column (what node means fill it with). Where a mean is not finite, the
// moments are worked out as meanss1 does and the cells keep +0.0.
void meanss1_zeroed(const ZeroedCells& cells, FMatrixView<const char> misind,
                    std::span<const int> ydat, std::span<const int> noc, Moments& mom);

void meanss1_column(FMatrixView<const double> xdat, FMatrixView<const char> misind,
                    std::span<const int> ydat, int nclass, int j, Moments& mom);

}  // namespace vardel
