// bratio: the incomplete beta function ratio I_x(a, b) and its complement.
//
// Checks the arguments, settles the trivial cases, then picks one of the
// expansions (power series, continued fraction, asymptotic forms, or a
// finite sum followed by one of those) by the region (a, b, x) falls in,
// possibly after swapping (a, x) with (b, y). Labels of the published
// routine are kept in comments.
#include <algorithm>
#include <cmath>

#include "numerics/constants_nswc.hpp"
#include "numerics/inc_beta.hpp"

namespace vardel {

namespace {

// The ways of evaluating I_x(a0, b0), named by the label of each in the
// published routine.
enum class Method {
  kFpser,      // L80
  kApser,      // L90
  kBpser,      // L100
  kBpserComp,  // L110
  kBfrac,      // L120
  kBupBgrat,   // L130
  kBgrat,      // L131
  kBupThen,    // L140
  kBasym,      // L180
};

}  // namespace

void bratio(double a, double b, double x, double y, double& w, double& w1, int& ierr) {
  using namespace inc_beta;

  // eps: the smallest number for which 1 + eps > 1.
  double eps = constants_nswc::spmpar(1);

  w = 0.0;
  w1 = 0.0;
  if (a < 0.0 || b < 0.0) {  // L300
    ierr = 1;
    return;
  }
  if (a == 0.0 && b == 0.0) {  // L310
    ierr = 2;
    return;
  }
  if (x < 0.0 || x > 1.0) {  // L320
    ierr = 3;
    return;
  }
  if (y < 0.0 || y > 1.0) {  // L330
    ierr = 4;
    return;
  }
  const double z = ((x + y) - 0.5) - 0.5;
  if (std::fabs(z) > 3.0 * eps) {  // L340
    ierr = 5;
    return;
  }

  ierr = 0;
  if (x == 0.0) {    // L200
    if (a == 0.0) {  // L350
      ierr = 6;
      return;
    }
    w = 0.0;  // L201
    w1 = 1.0;
    return;
  }
  if (y == 0.0) {    // L210
    if (b == 0.0) {  // L360
      ierr = 7;
      return;
    }
    w = 1.0;  // L211
    w1 = 0.0;
    return;
  }
  if (a == 0.0) {  // L211
    w = 1.0;
    w1 = 0.0;
    return;
  }
  if (b == 0.0) {  // L201
    w = 0.0;
    w1 = 1.0;
    return;
  }

  // Below 1e-15 the expansions gain nothing from a smaller tolerance.
  eps = std::max(eps, 1.e-15);
  if (std::max(a, b) < 1.e-3 * eps) {  // L230: a and b both negligible
    w = b / (a + b);
    w1 = a / (a + b);
    return;
  }

  int ind = 0;
  double a0 = a;
  double b0 = b;
  double x0 = x;
  double y0 = y;
  double lambda = 0.0;
  int n = 0;
  Method method;

  if (std::min(a0, b0) <= 1.0) {
    // Procedure for a0 <= 1 or b0 <= 1
    if (x > 0.5) {
      ind = 1;
      a0 = b;
      b0 = a;
      x0 = y;
      y0 = x;
    }
    // L10
    if (b0 < std::min(eps, eps * a0)) {
      method = Method::kFpser;
    } else if (a0 < std::min(eps, eps * b0) && b0 * x0 <= 1.0) {
      method = Method::kApser;
    } else if (std::max(a0, b0) > 1.0) {
      // L20
      if (b0 <= 1.0) {
        method = Method::kBpser;
      } else if (x0 >= 0.3) {
        method = Method::kBpserComp;
      } else if (x0 < 0.1 && std::pow(x0 * b0, a0) <= 0.7) {
        method = Method::kBpser;
      } else if (b0 > 15.0) {  // L21
        method = Method::kBgrat;
      } else {
        n = 20;
        method = Method::kBupBgrat;
      }
    } else if (a0 >= std::min(0.2, b0)) {
      method = Method::kBpser;
    } else if (std::pow(x0, a0) <= 0.9) {
      method = Method::kBpser;
    } else if (x0 >= 0.3) {
      method = Method::kBpserComp;
    } else {
      n = 20;
      method = Method::kBupBgrat;
    }
  } else {
    // Procedure for a0 > 1 and b0 > 1: L30
    if (a > b) {
      lambda = (a + b) * y - b;  // L31
    } else {
      lambda = a - (a + b) * x;
    }
    if (lambda < 0.0) {  // L32
      ind = 1;
      a0 = b;
      b0 = a;
      x0 = y;
      y0 = x;
      lambda = std::fabs(lambda);
    }
    // L40
    if (b0 < 40.0 && b0 * x0 <= 0.7) {
      method = Method::kBpser;
    } else if (b0 < 40.0) {
      method = Method::kBupThen;
    } else if (a0 > b0) {  // L50
      if (b0 <= 100.0 || lambda > 0.03 * b0) {
        method = Method::kBfrac;
      } else {
        method = Method::kBasym;
      }
    } else if (a0 <= 100.0 || lambda > 0.03 * a0) {
      method = Method::kBfrac;
    } else {
      method = Method::kBasym;
    }
  }

  // Evaluation of the appropriate algorithm. The status of bgrat is not
  // passed on: when its expansion fails w keeps the part already summed.
  int ierr1 = 0;
  switch (method) {
    case Method::kFpser:  // L80
      w = fpser(a0, b0, x0, eps);
      w1 = 0.5 + (0.5 - w);
      break;
    case Method::kApser:  // L90
      w1 = apser(a0, b0, x0, eps);
      w = 0.5 + (0.5 - w1);
      break;
    case Method::kBpser:  // L100
      w = bpser(a0, b0, x0, eps);
      w1 = 0.5 + (0.5 - w);
      break;
    case Method::kBpserComp:  // L110
      w1 = bpser(b0, a0, y0, eps);
      w = 0.5 + (0.5 - w1);
      break;
    case Method::kBfrac:  // L120
      w = bfrac(a0, b0, x0, y0, lambda, 15.0 * eps);
      w1 = 0.5 + (0.5 - w);
      break;
    case Method::kBupBgrat:  // L130
      w1 = bup(b0, a0, y0, x0, n, eps);
      b0 = b0 + n;
      [[fallthrough]];
    case Method::kBgrat:  // L131
      bgrat(b0, a0, y0, x0, w1, 15.0 * eps, ierr1);
      w = 0.5 + (0.5 - w1);
      break;
    case Method::kBupThen:  // L140
      n = static_cast<int>(b0);
      b0 = b0 - n;
      if (b0 == 0.0) {
        n = n - 1;
        b0 = 1.0;
      }
      w = bup(b0, a0, y0, x0, n, eps);  // L141
      if (x0 <= 0.7) {
        w = w + bpser(a0, b0, x0, eps);
        w1 = 0.5 + (0.5 - w);
        break;
      }
      if (a0 <= 15.0) {  // L150
        n = 20;
        w = w + bup(a0, b0, x0, y0, n, eps);
        a0 = a0 + n;
      }
      bgrat(a0, b0, x0, y0, w, 15.0 * eps, ierr1);  // L151
      w1 = 0.5 + (0.5 - w);
      break;
    case Method::kBasym:  // L180
      w = basym(a0, b0, lambda, 100.0 * eps);
      w1 = 0.5 + (0.5 - w);
      break;
  }

  // L220: undo the swap of (a, x) with (b, y)
  if (ind == 0) return;
  const double t = w;
  w = w1;
  w1 = t;
}

}  // namespace vardel
