// Planar-rotation least squares (see qr_lsq.hpp).
#include "numerics/qr_lsq.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vardel {

void QrLsq::init_qr_lsq(int nvar, bool fit_const) {
  // Weights and row elements below this are taken as exact zeros.
  vsmall_ = 10.0 * std::numeric_limits<double>::min();
  nobs_ = 0;
  fit_const_ = fit_const;
  ncol_ = fit_const ? nvar + 1 : nvar;
  const int r_dim = ncol_ * (ncol_ - 1) / 2;
  d_.assign(ncol_, 0.0);
  rhs_.assign(ncol_, 0.0);
  r_.assign(std::max(r_dim, 1), 0.0);
  tol_.assign(ncol_, 0.0);
  row_ptr_.assign(ncol_, 0);
  row_.assign(static_cast<std::size_t>(ncol_), 0.0);
  sserr_ = 0.0;
  // row_ptr(i) is the position of element R(i, i + 1) in r.
  if (ncol_ >= 1) row_ptr_(1) = 1;
  for (int i = 2; i <= ncol_ - 1; ++i) row_ptr_(i) = row_ptr_(i - 1) + ncol_ - i + 1;
  if (ncol_ >= 1) row_ptr_(ncol_) = 0;
  tol_set_ = false;
}

void QrLsq::includ(double weight, std::span<const double> xrow, double y) {
  std::size_t k = 0;
  if (fit_const_) row_[k++] = 1.0;
  for (std::size_t i = 0; k < row_.size(); ++i) row_[k++] = xrow[i];
  include_row(weight, FView<double>(row_), y);
}

void QrLsq::include_row(double weight, FView<double> xrow, double yelem) {
  nobs_ = nobs_ + 1;
  double w = weight;
  double y = yelem;
  int nextr = 1;
  for (int i = 1; i <= ncol_; ++i) {
    // Skip unnecessary transformations. The test must be on exact zeros, or
    // stability can be destroyed.
    if (std::abs(w) < vsmall_) return;
    const double xi = xrow(i);
    if (std::abs(xi) < vsmall_) {
      nextr = nextr + ncol_ - i;
    } else {
      const double di = d_(i);
      const double wxi = w * xi;
      const double dpi = di + wxi * xi;
      const double cbar = di / dpi;
      const double sbar = wxi / dpi;
      w = cbar * w;
      d_(i) = dpi;
      for (int k = i + 1; k <= ncol_; ++k) {
        const double xk = xrow(k);
        xrow(k) = xk - xi * r_(nextr);
        r_(nextr) = cbar * r_(nextr) + sbar * xk;
        nextr = nextr + 1;
      }
      const double xk = y;
      y = xk - xi * rhs_(i);
      rhs_(i) = cbar * rhs_(i) + sbar * xk;
    }
  }
  // y * sqrt(w) is now the recursive residual of this case.
  sserr_ = sserr_ + w * y * y;
}

void QrLsq::tolset(double eps) {
  // Relative size below which a column counts as dependent.
  const double ten_eps = 10.0 * std::numeric_limits<double>::epsilon();
  const double eps1 = std::max(std::abs(eps), ten_eps);
  FArray<double> work(ncol_);
  for (int i = 1; i <= ncol_; ++i) work(i) = std::sqrt(d_(i));
  for (int col = 1; col <= ncol_; ++col) {
    int pos = col - 1;
    double total = work(col);
    for (int row = 1; row <= col - 1; ++row) {
      total = total + std::abs(r_(pos)) * work(row);
      pos = pos + ncol_ - row - 1;
    }
    tol_(col) = eps1 * total;
  }
  tol_set_ = true;
}

void QrLsq::sing(std::span<bool> lindep_out, int& fault) {
  FView<bool> lindep(lindep_out);
  fault = 0;
  FArray<double> work(ncol_);
  for (int i = 1; i <= ncol_; ++i) work(i) = std::sqrt(d_(i));
  if (!tol_set_) tolset();

  for (int col = 1; col <= ncol_; ++col) {
    // Set elements within R to zero if they are less than tol(col) in
    // absolute value after being scaled by the square root of their row
    // multiplier.
    const double temp = tol_(col);
    int pos = col - 1;
    for (int row = 1; row <= col - 1; ++row) {
      if (std::abs(r_(pos)) * work(row) < temp) r_(pos) = 0.0;
      pos = pos + ncol_ - row - 1;
    }
    // If the diagonal element is near zero, set it to zero, flag the column
    // and pass its row through includ to augment the projections in the
    // lower rows of the reduction.
    lindep(col) = false;
    if (work(col) <= temp) {
      lindep(col) = true;
      fault = fault - 1;
      if (col < ncol_) {
        const int pos2 = pos + ncol_ - col + 1;
        FArray<double> x(ncol_, 0.0);
        for (int k = pos + 1; k <= pos2 - 1; ++k) {
          x(col + 1 + (k - pos - 1)) = r_(k);
          r_(k) = 0.0;
        }
        const double y = rhs_(col);
        const double weight = d_(col);
        d_(col) = 0.0;
        rhs_(col) = 0.0;
        include_row(weight, FView<double>(x.span()), y);
        // include_row counts a case each time it is called.
        nobs_ = nobs_ - 1;
      } else {
        sserr_ = sserr_ + d_(col) * (rhs_(col) * rhs_(col));
      }
    }
  }
}

void QrLsq::regcf(std::span<double> beta_out, int nreq, int& fault) {
  fault = 0;
  if (nreq < 1 || nreq > ncol_) {
    fault = fault + 4;
    return;
  }
  FView<double> beta(beta_out);
  if (!tol_set_) tolset();
  for (int i = nreq; i >= 1; --i) {
    if (std::sqrt(d_(i)) < tol_(i)) {
      beta(i) = 0.0;
      d_(i) = 0.0;
      fault = -i;
    } else {
      beta(i) = rhs_(i);
      int nextr = row_ptr_(i);
      for (int j = i + 1; j <= nreq; ++j) {
        beta(i) = beta(i) - r_(nextr) * beta(j);
        nextr = nextr + 1;
      }
    }
  }
}

}  // namespace vardel
