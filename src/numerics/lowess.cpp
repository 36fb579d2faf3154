// Robust locally weighted regression smoother (see lowess.hpp). The control
// flow follows the published routine; its labels are kept in comments.
#include "numerics/lowess.hpp"

#include <algorithm>
#include <cmath>

#include "numerics/farray.hpp"

namespace vardel {

namespace {

// Stands in for zero in the tests on sums of weights and on the
// neighbourhood radius, so that underflowed values count as zero.
constexpr double kTiny = 2.2250738585072014e-308;

}  // namespace

void lowest(std::span<const double> x_in, std::span<const double> y_in, int n, double xs,
            double& ys, int nleft, int nright, std::span<double> w_in, bool userw,
            std::span<const double> rw_in, bool& ok) {
  FView<const double> x(x_in);
  FView<const double> y(y_in);
  FView<double> w(w_in);
  FView<const double> rw(rw_in);

  const double range = x(n) - x(1);
  const double h = std::max(xs - x(nleft), x(nright) - xs);
  const double h9 = 0.999 * h;
  const double h1 = 0.001 * h;

  // Sum of weights.
  double a = 0.0;
  int j = nleft;
  for (; j <= n; ++j) {  // was L1, L2
    // Compute weights, picking up all ties on the right.
    w(j) = 0.0;
    const double r = std::abs(x(j) - xs);
    if (r <= h9) {
      if (r > h1) {
        const double q = r / h;
        const double t = 1.0 - q * q * q;
        w(j) = t * t * t;
      } else {  // was L3
        w(j) = 1.0;
      }
      if (userw) w(j) = rw(j) * w(j);  // was L4
      a = a + w(j);
    } else if (x(j) > xs) {  // was L5
      break;                 // out at the first zero weight on the right
    }
  }
  // Rightmost point, beyond nright when there are ties.
  const int nrt = j - 1;  // was L7
  if (!(a > kTiny)) {
    ok = false;
    return;
  }

  // Weighted least squares.
  ok = true;  // was L8
  // Make the weights sum to one.
  for (j = nleft; j <= nrt; ++j) w(j) = w(j) / a;
  if (h > kTiny) {
    // Use a linear fit: weighted centre of the x values.
    a = 0.0;
    for (j = nleft; j <= nrt; ++j) a = a + w(j) * x(j);
    double b = xs - a;
    double c = 0.0;
    for (j = nleft; j <= nrt; ++j) c = c + w(j) * (x(j) - a) * (x(j) - a);
    if (std::sqrt(c) > 0.001 * range) {
      // The points are spread out enough to compute a slope.
      b = b / c;
      for (j = nleft; j <= nrt; ++j) w(j) = w(j) * (b * (x(j) - a) + 1.0);
    }  // was L13
  }
  ys = 0.0;  // was L14
  for (j = nleft; j <= nrt; ++j) ys = ys + w(j) * y(j);
}

void lowess(std::span<const double> x_in, std::span<const double> y_in, int n, double f, int nsteps,
            double delta, std::span<double> ys_out, std::span<double> rw_out,
            std::span<double> res_out) {
  FView<const double> x(x_in);
  FView<const double> y(y_in);
  FView<double> ys(ys_out);
  FView<double> rw(rw_out);
  FView<double> res(res_out);

  if (n < 2) {
    ys(1) = y(1);
    return;
  }
  // Points in each neighbourhood.
  const int ns = std::max(std::min(static_cast<int>(f * static_cast<double>(n)), n), 2);

  for (int iter = 1; iter <= nsteps + 1; ++iter) {  // was L2, L3: robustness steps
    int nleft = 1;
    int nright = ns;
    int last = 0;  // index of the previous point fitted
    int i = 1;     // index of the current point
    do {           // was L4
      // Move nleft, nright right while that makes the radius smaller.
      while (nright < n) {
        const double d1 = x(i) - x(nleft);
        const double d2 = x(nright + 1) - x(i);
        // With d1 <= d2 and x(nright + 1) == x(nright), lowest picks up the tie.
        if (d1 <= d2) break;
        nleft = nleft + 1;
        nright = nright + 1;
      }
      // Fitted value at x(i); with every weight zero, copy y(i).
      bool ok = false;
      lowest(x_in, y_in, n, x(i), ys(i), nleft, nright, res_out, iter > 1, rw_out, ok);  // was L5
      if (!ok) ys(i) = y(i);
      if (last < i - 1) {
        // Interpolate the points skipped.
        const double denom = x(i) - x(last);
        for (int j = last + 1; j < i; ++j) {  // was L6, L7
          const double alpha = (x(j) - x(last)) / denom;
          ys(j) = alpha * ys(i) + (1.0 - alpha) * ys(last);
        }
      }
      last = i;  // was L9
      // Skip the points within delta of the last fitted, copying exact ties.
      const double cut = x(last) + delta;
      for (i = last + 1; i <= n; ++i) {  // was L10, L11
        if (x(i) > cut) break;
        if (x(i) == x(last)) {
          ys(i) = ys(last);
          last = i;
        }
      }
      // Back one point so that interpolation stays within delta, but always
      // go forward.
      i = std::max(last + 1, i - 1);  // was L13
    } while (last < n);               // was L14

    for (i = 1; i <= n; ++i) res(i) = y(i) - ys(i);  // was L15
    if (iter > nsteps) break;

    // Robustness weights for the next step, from six times the median
    // absolute residual.
    for (i = 1; i <= n; ++i) rw(i) = std::abs(res(i));  // was L16
    std::sort(rw_out.begin(), rw_out.begin() + n);
    const int m1 = n / 2 + 1;
    const int m2 = n - m1 + 1;
    const double cmad = 3.0 * (rw(m1) + rw(m2));
    const double c9 = 0.999 * cmad;
    const double c1 = 0.001 * cmad;
    for (i = 1; i <= n; ++i) {  // was L21
      const double r = std::abs(res(i));
      if (!(c1 < r)) {
        rw(i) = 1.0;
      } else if (r > c9) {  // was L17
        rw(i) = 0.0;
      } else {  // was L18
        const double q = r / cmad;
        const double t = 1.0 - q * q;
        rw(i) = t * t;
      }
    }
  }  // was L22
}

}  // namespace vardel
