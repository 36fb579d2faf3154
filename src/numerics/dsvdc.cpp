// Singular value decomposition (see dsvdc.hpp). The structure follows the
// published routine; the original statement labels are kept in comments.
#include "numerics/dsvdc.hpp"

#include <algorithm>
#include <cmath>

#include "numerics/blas1.hpp"

namespace vardel {

namespace {

// The len elements of column j of a from row i down.
std::span<double> down(FArray<double>& a, int i, int j, int len) {
  if (len <= 0) return {};
  return std::span<double>(&a(i, j), static_cast<std::size_t>(len));
}

// The len elements of a vector from position i on.
std::span<double> from(FView<double> a, int i, int len) {
  if (len <= 0) return {};
  return std::span<double>(&a(i), static_cast<std::size_t>(len));
}

}  // namespace

void dsvdc(FArray<double>& x, int n, int p, std::span<double> s_out, std::span<double> e_out,
           FArray<double>& u, FArray<double>& v, int job, int& info) {
  // Sweeps of the QR iteration allowed on one singular value.
  const int maxit = 30;

  FView<double> s(s_out);
  FView<double> e(e_out);

  // Determine what is to be computed.
  bool wantu = false;
  bool wantv = false;
  const int jobu = (job % 100) / 10;
  int ncu = n;
  if (jobu > 1) ncu = std::min(n, p);
  if (jobu != 0) wantu = true;
  if (job % 10 != 0) wantv = true;
  if (wantu && (u.extent1() < n || u.extent2() < ncu)) u.assign(n, ncu, 0.0);
  if (wantv && (v.extent1() < p || v.extent2() < p)) v.assign(p, p, 0.0);
  FArray<double> work(std::max(n, 1), 0.0);

  // Reduce x to bidiagonal form, storing the diagonal elements in s and the
  // superdiagonal elements in e.
  info = 0;
  const int nct = std::min(n - 1, p);
  const int nrt = std::max(0, std::min(p - 2, n));
  const int lu = std::max(nct, nrt);
  for (int l = 1; l <= lu; ++l) {  // was L160
    const int lp1 = l + 1;
    if (l <= nct) {
      // Compute the transformation for the l-th column and place the l-th
      // diagonal in s(l).
      s(l) = dnrm2(down(x, l, l, n - l + 1));
      if (s(l) != 0.0) {
        if (x(l, l) != 0.0) s(l) = std::copysign(std::abs(s(l)), x(l, l));
        dscal(1.0 / s(l), down(x, l, l, n - l + 1));
        x(l, l) = 1.0 + x(l, l);
      }  // was L10
      s(l) = -s(l);
    }                                 // was L20
    for (int j = lp1; j <= p; ++j) {  // was L40
      if (l <= nct && s(l) != 0.0) {
        // Apply the transformation.
        const double t = -ddot(down(x, l, l, n - l + 1), down(x, l, j, n - l + 1)) / x(l, l);
        daxpy(t, down(x, l, l, n - l + 1), down(x, l, j, n - l + 1));
      }  // was L30
      // Place the l-th row of x into e for the subsequent calculation of the
      // row transformation.
      e(j) = x(l, j);
    }  // was L50
    if (wantu && l <= nct) {
      // Place the transformation in u for subsequent back multiplication.
      for (int i = l; i <= n; ++i) u(i, l) = x(i, l);  // was L60
    }                                                  // was L70
    if (l <= nrt) {
      // Compute the l-th row transformation and place the l-th superdiagonal
      // in e(l).
      e(l) = dnrm2(from(e, lp1, p - l));
      if (e(l) != 0.0) {
        if (e(lp1) != 0.0) e(l) = std::copysign(std::abs(e(l)), e(lp1));
        dscal(1.0 / e(l), from(e, lp1, p - l));
        e(lp1) = 1.0 + e(lp1);
      }  // was L80
      e(l) = -e(l);
      if (lp1 <= n && e(l) != 0.0) {
        // Apply the transformation.
        for (int i = lp1; i <= n; ++i) work(i) = 0.0;  // was L90
        for (int j = lp1; j <= p; ++j) {               // was L100
          daxpy(e(j), down(x, lp1, j, n - l), from(work.span(), lp1, n - l));
        }
        for (int j = lp1; j <= p; ++j) {  // was L110
          daxpy(-e(j) / e(lp1), from(work.span(), lp1, n - l), down(x, lp1, j, n - l));
        }
      }  // was L120
      if (wantv) {
        // Place the transformation in v for subsequent back multiplication.
        for (int i = lp1; i <= p; ++i) v(i, l) = e(i);  // was L130
      }                                                 // was L140
    }                                                   // was L150
  }                                                     // was L170

  // Set up the final bidiagonal matrix of order m.
  int m = std::min(p, n + 1);
  const int nctp1 = nct + 1;
  const int nrtp1 = nrt + 1;
  if (nct < p) s(nctp1) = x(nctp1, nctp1);
  if (n < m) s(m) = 0.0;
  if (nrtp1 < m) e(nrtp1) = x(nrtp1, m);
  e(m) = 0.0;

  // If required, generate u.
  if (wantu) {
    for (int j = nctp1; j <= ncu; ++j) {  // was L190
      for (int i = 1; i <= n; ++i) u(i, j) = 0.0;
      u(j, j) = 1.0;
    }                                    // was L200
    for (int ll = 1; ll <= nct; ++ll) {  // was L280
      const int l = nct - ll + 1;
      if (s(l) != 0.0) {
        const int lp1 = l + 1;
        for (int j = lp1; j <= ncu; ++j) {  // was L210
          const double t = -ddot(down(u, l, l, n - l + 1), down(u, l, j, n - l + 1)) / u(l, l);
          daxpy(t, down(u, l, l, n - l + 1), down(u, l, j, n - l + 1));
        }  // was L220
        dscal(-1.0, down(u, l, l, n - l + 1));
        u(l, l) = 1.0 + u(l, l);
        for (int i = 1; i <= l - 1; ++i) u(i, l) = 0.0;  // was L230, L240
      } else {                                           // was L250
        for (int i = 1; i <= n; ++i) u(i, l) = 0.0;
        u(l, l) = 1.0;
      }  // was L270
    }    // was L290
  }      // was L300

  // If it is required, generate v.
  if (wantv) {
    for (int ll = 1; ll <= p; ++ll) {  // was L340
      const int l = p - ll + 1;
      const int lp1 = l + 1;
      if (l <= nrt && e(l) != 0.0) {
        for (int j = lp1; j <= p; ++j) {  // was L310
          const double t = -ddot(down(v, lp1, l, p - l), down(v, lp1, j, p - l)) / v(lp1, l);
          daxpy(t, down(v, lp1, l, p - l), down(v, lp1, j, p - l));
        }
      }                                            // was L320
      for (int i = 1; i <= p; ++i) v(i, l) = 0.0;  // was L330
      v(l, l) = 1.0;
    }
  }  // was L350

  // Main iteration loop for the singular values.
  const int mm = m;
  int iter = 0;
  for (;;) {  // was L360
    // Quit if all the singular values have been found.
    if (m == 0) break;
    // If too many iterations have been performed, set the flag and return.
    if (iter >= maxit) {
      info = m;
      break;
    }  // was L370

    // Inspect for negligible elements in the s and e arrays. On completion
    // kase and l are set as follows:
    //   kase = 1  if s(m) and e(l-1) are negligible and l < m;
    //   kase = 2  if s(l) is negligible and l < m;
    //   kase = 3  if e(l-1) is negligible, l < m, and s(l), ..., s(m) are
    //             not negligible (QR step);
    //   kase = 4  if e(m-1) is negligible (convergence).
    int l = 0;
    int kase = 0;
    for (int ll = 1; ll <= m; ++ll) {  // was L390
      l = m - ll;
      if (l == 0) break;
      const double test = std::abs(s(l)) + std::abs(s(l + 1));
      const double ztest = test + std::abs(e(l));
      if (ztest == test) {
        e(l) = 0.0;
        break;
      }  // was L380
    }    // was L400
    if (l == m - 1) {
      kase = 4;
    } else {  // was L410
      const int lp1 = l + 1;
      const int mp1 = m + 1;
      int ls = 0;
      for (int lls = lp1; lls <= mp1; ++lls) {  // was L430
        ls = m - lls + lp1;
        if (ls == l) break;
        double test = 0.0;
        if (ls != m) test = test + std::abs(e(ls));
        if (ls != l + 1) test = test + std::abs(e(ls - 1));
        const double ztest = test + std::abs(s(ls));
        if (ztest == test) {
          s(ls) = 0.0;
          break;
        }  // was L420
      }    // was L440
      if (ls == l) {
        kase = 3;
      } else if (ls == m) {  // was L450
        kase = 1;
      } else {  // was L460
        kase = 2;
        l = ls;
      }  // was L470
    }    // was L480
    l = l + 1;

    // Perform the task indicated by kase.
    switch (kase) {
      case 1: {  // was L490: deflate negligible s(m).
        const int mm1 = m - 1;
        double f = e(m - 1);
        e(m - 1) = 0.0;
        for (int kk = l; kk <= mm1; ++kk) {  // was L510
          const int k = mm1 - kk + l;
          double t1 = s(k);
          double cs = 0.0;
          double sn = 0.0;
          drotg(t1, f, cs, sn);
          s(k) = t1;
          if (k != l) {
            f = -sn * e(k - 1);
            e(k - 1) = cs * e(k - 1);
          }  // was L500
          if (wantv) drot(down(v, 1, k, p), down(v, 1, m, p), cs, sn);
        }
        break;
      }
      case 2: {  // was L520: split at negligible s(l).
        double f = e(l - 1);
        e(l - 1) = 0.0;
        for (int k = l; k <= m; ++k) {  // was L530
          double t1 = s(k);
          double cs = 0.0;
          double sn = 0.0;
          drotg(t1, f, cs, sn);
          s(k) = t1;
          f = -sn * e(k);
          e(k) = cs * e(k);
          if (wantu) drot(down(u, 1, k, n), down(u, 1, l - 1, n), cs, sn);
        }
        break;
      }
      case 3: {  // was L540: perform one QR step.
        // Calculate the shift.
        const double scale = std::max({std::abs(s(m)), std::abs(s(m - 1)), std::abs(e(m - 1)),
                                       std::abs(s(l)), std::abs(e(l))});
        const double sm = s(m) / scale;
        const double smm1 = s(m - 1) / scale;
        const double emm1 = e(m - 1) / scale;
        const double sl = s(l) / scale;
        const double el = e(l) / scale;
        const double b = ((smm1 + sm) * (smm1 - sm) + emm1 * emm1) / 2.0;
        const double c = (sm * emm1) * (sm * emm1);
        double shift = 0.0;
        if (b != 0.0 || c != 0.0) {
          shift = std::sqrt(b * b + c);
          if (b < 0.0) shift = -shift;
          shift = c / (b + shift);
        }  // was L550
        double f = (sl + sm) * (sl - sm) - shift;
        double g = sl * el;

        // Chase zeros.
        const int mm1 = m - 1;
        for (int k = l; k <= mm1; ++k) {  // was L560
          double cs = 0.0;
          double sn = 0.0;
          drotg(f, g, cs, sn);
          if (k != l) e(k - 1) = f;
          f = cs * s(k) + sn * e(k);
          e(k) = cs * e(k) - sn * s(k);
          g = sn * s(k + 1);
          s(k + 1) = cs * s(k + 1);
          if (wantv) drot(down(v, 1, k, p), down(v, 1, k + 1, p), cs, sn);
          drotg(f, g, cs, sn);
          s(k) = f;
          f = cs * e(k) + sn * s(k + 1);
          s(k + 1) = -sn * e(k) + cs * s(k + 1);
          g = sn * e(k + 1);
          e(k + 1) = cs * e(k + 1);
          if (wantu && k < n) drot(down(u, 1, k, n), down(u, 1, k + 1, n), cs, sn);
        }
        e(m - 1) = f;
        iter = iter + 1;
        break;
      }
      case 4: {  // was L570: convergence.
        // Make the singular value positive.
        if (s(l) < 0.0) {
          s(l) = -s(l);
          if (wantv) dscal(-1.0, down(v, 1, l, p));
        }  // was L580
        // Order the singular value.
        while (l != mm) {  // was L590
          if (s(l) >= s(l + 1)) break;
          const double t = s(l);
          s(l) = s(l + 1);
          s(l + 1) = t;
          if (wantv && l < p) dswap(down(v, 1, l, p), down(v, 1, l + 1, p));
          if (wantu && l < n) dswap(down(u, 1, l, n), down(u, 1, l + 1, n));
          l = l + 1;
        }  // was L600
        iter = 0;
        m = m - 1;
        break;
      }
      default:
        break;
    }
  }  // was L610, L620
}

}  // namespace vardel
