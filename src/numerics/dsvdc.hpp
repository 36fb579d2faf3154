// Singular value decomposition of a real n by p matrix, x = u * diag(s) * v',
// by Householder reduction to bidiagonal form and implicitly shifted QR
// iterations on the bidiagonal (the classic LINPACK routine dsvdc).
//
// x (n by p, leading dimension x.extent1() >= n) is destroyed. On return
//   s   (min(n + 1, p) entries) holds the singular values, largest first;
//   e   (p entries) is normally zero; if info != 0 it holds the
//       superdiagonal of a bidiagonal matrix with the same singular values;
//   u   holds left singular vectors when the tens digit of job is non-zero:
//       1 asks for all n of them (u is n by n), 2 or more for the first
//       min(n, p) (u is n by min(n, p));
//   v   (p by p) holds the right singular vectors when the units digit of
//       job is non-zero;
//   info is 0 on success. Otherwise the singular values info + 1, ..., of s
//       are correct and the others, and u and v, are not: the QR iteration
//       gave up after 30 sweeps on one value.
// u and v are reshaped when they are smaller than the job needs; a larger
// leading dimension is used as it is.
#pragma once

#include <span>

#include "numerics/farray.hpp"

namespace vardel {

void dsvdc(FArray<double>& x, int n, int p, std::span<double> s, std::span<double> e,
           FArray<double>& u, FArray<double>& v, int job, int& info);

}  // namespace vardel
