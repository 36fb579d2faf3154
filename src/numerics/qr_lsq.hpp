// Least squares by planar rotations (Applied Statistics algorithm AS 274).
//
// Cases are added one at a time to an orthogonal reduction D^(1/2) R of the
// design; the regression needs no cross-product matrix. With the constant
// option the fit has a column of its own for the constant, placed first,
// ahead of the nvar predictors.
//
// Usage: init_qr_lsq, then includ for each case, then (optionally tolset
// and) sing to move dependent columns out of the fit, then regcf.
#pragma once

#include <span>
#include <vector>

#include "numerics/farray.hpp"

namespace vardel {

class QrLsq {
 public:
  // Starts an empty fit of nvar predictors, with a constant column in front
  // of them when fit_const is set.
  void init_qr_lsq(int nvar, bool fit_const);

  // Adds one case with the given weight: xrow holds its nvar predictor
  // values (the constant's 1 is supplied here), y its response.
  void includ(double weight, std::span<const double> xrow, double y);

  // Sets each column's singularity tolerance to eps times the size of that
  // column of D^(1/2) R. eps below ten times the machine precision is raised
  // to it; the default is ten times the machine precision.
  void tolset(double eps = 0.0);

  // Finds columns that are exactly or nearly dependent on earlier ones:
  // lindep(i) is set for each such column i (ncol entries), its row of the
  // reduction is cleared and folded into the rows below. fault is minus the
  // number of dependent columns, 0 if there are none.
  void sing(std::span<bool> lindep, int& fault);

  // Solves for the first nreq coefficients (beta has at least nreq entries;
  // with the constant option beta(1) is the constant). A column whose
  // diagonal is below its tolerance gets coefficient 0 and sets fault to
  // minus its position; fault is 4 if nreq is not in 1..ncol.
  void regcf(std::span<double> beta, int nreq, int& fault);

  int ncol() const { return ncol_; }
  int nobs() const { return nobs_; }
  // Residual sum of squares of the full fit.
  double sserr() const { return sserr_; }

 private:
  // The updating step on a full row of ncol values (destroyed).
  void include_row(double weight, FView<double> xrow, double y);

  int nobs_ = 0;
  int ncol_ = 0;
  bool fit_const_ = false;
  bool tol_set_ = false;
  double vsmall_ = 0.0;
  double sserr_ = 0.0;
  FArray<double> d_;         // row multipliers
  FArray<double> rhs_;       // projections of y
  FArray<double> r_;         // strict upper triangle of R, by rows
  FArray<double> tol_;       // singularity tolerances
  FArray<int> row_ptr_;      // position in r_ of R(i, i + 1)
  std::vector<double> row_;  // scratch row for includ
};

}  // namespace vardel
