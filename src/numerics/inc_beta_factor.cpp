// The leading factor of the incomplete beta expansions: brcomp gives
// x**a * y**b / B(a,b), brcmp1 the same multiplied by exp(mu), so that a
// caller may scale a factor that would otherwise underflow.
#include <algorithm>
#include <cmath>

#include "numerics/inc_beta.hpp"

namespace vardel::inc_beta {

namespace {

const double kConst = .398942280401433;  // 1/sqrt(2*pi)

// ln x and ln y = ln(1 - x), taking whichever of x, y is small through alnrel.
void log_pair(double x, double y, double& lnx, double& lny) {
  if (x <= 0.375) {
    lnx = std::log(x);
    lny = alnrel(-x);
  } else if (y <= 0.375) {  // L10
    lnx = alnrel(-y);
    lny = std::log(y);
  } else {
    lnx = std::log(x);  // L11
    lny = std::log(y);
  }
}

// For a, b >= 8 (L100 to L130): the exponent -(a*u + b*v) of the factor,
// and in x0 the point a/(a+b) that its leading square root needs.
double large_exponent(double a, double b, double x, double y, double& x0) {
  double lambda;
  double y0;
  if (a > b) {
    const double h = b / a;  // L101
    x0 = 1.0 / (1.0 + h);
    y0 = h / (1.0 + h);
    lambda = (a + b) * y - b;
  } else {
    const double h = a / b;
    x0 = h / (1.0 + h);
    y0 = 1.0 / (1.0 + h);
    lambda = a - (a + b) * x;
  }
  double e = -lambda / a;  // L110
  double u;
  if (std::fabs(e) > 0.6) {
    u = e - std::log(x / x0);  // L111
  } else {
    u = rlog1(e);
  }
  e = lambda / b;  // L120
  double v;
  if (std::fabs(e) > 0.6) {
    v = e - std::log(y / y0);  // L121
  } else {
    v = rlog1(e);
  }
  return -(a * u + b * v);  // L130
}

}  // namespace

double brcomp(double a, double b, double x, double y) {
  if (x == 0.0 || y == 0.0) return 0.0;
  const double a0 = std::min(a, b);
  if (a0 >= 8.0) {
    // L100: procedure for a >= 8 and b >= 8
    double x0;
    const double z = std::exp(large_exponent(a, b, x, y, x0));
    return kConst * std::sqrt(b * x0) * z * std::exp(-bcorr(a, b));
  }

  double lnx;
  double lny;
  log_pair(x, y, lnx, lny);
  double z = a * lnx + b * lny;  // L20
  if (a0 >= 1.0) {
    z = z - betaln(a, b);
    return std::exp(z);
  }

  // L30: procedure for a < 1 or b < 1
  double b0 = std::max(a, b);
  if (b0 >= 8.0) {
    // L80: algorithm for b0 >= 8
    const double u = gamln1(a0) + algdiv(a0, b0);
    return a0 * std::exp(z - u);
  }
  if (b0 > 1.0) {
    // L60: algorithm for 1 < b0 < 8
    double u = gamln1(a0);
    const int n = static_cast<int>(b0 - 1.0);
    if (n >= 1) {
      double c = 1.0;
      for (int i = 1; i <= n; ++i) {
        b0 = b0 - 1.0;
        c = c * (b0 / (a0 + b0));
      }
      u = std::log(c) + u;
    }
    z = z - u;  // L70
    b0 = b0 - 1.0;
    const double apb = a0 + b0;
    double t;
    if (apb <= 1.0) {
      t = 1.0 + gam1(apb);
    } else {
      u = a0 + b0 - 1.0;  // L71
      t = (1.0 + gam1(u)) / apb;
    }
    return a0 * std::exp(z) * (1.0 + gam1(b0)) / t;  // L72
  }

  // Algorithm for b0 <= 1
  double result = std::exp(z);
  if (result == 0.0) return result;
  const double apb = a + b;
  if (apb <= 1.0) {
    z = 1.0 + gam1(apb);
  } else {
    const double u = a + b - 1.0;  // L40
    z = (1.0 + gam1(u)) / apb;
  }
  const double c = (1.0 + gam1(a)) * (1.0 + gam1(b)) / z;  // L50
  return result * (a0 * c) / (1.0 + a0 / b0);
}

double brcmp1(int mu, double a, double b, double x, double y) {
  const double a0 = std::min(a, b);
  if (a0 >= 8.0) {
    // L100: procedure for a >= 8 and b >= 8
    double x0;
    const double z = esum(mu, large_exponent(a, b, x, y, x0));
    return kConst * std::sqrt(b * x0) * z * std::exp(-bcorr(a, b));
  }

  double lnx;
  double lny;
  log_pair(x, y, lnx, lny);
  double z = a * lnx + b * lny;  // L20
  if (a0 >= 1.0) {
    z = z - betaln(a, b);
    return esum(mu, z);
  }

  // L30: procedure for a < 1 or b < 1
  double b0 = std::max(a, b);
  if (b0 >= 8.0) {
    // L80: algorithm for b0 >= 8
    const double u = gamln1(a0) + algdiv(a0, b0);
    return a0 * esum(mu, z - u);
  }
  if (b0 > 1.0) {
    // L60: algorithm for 1 < b0 < 8
    double u = gamln1(a0);
    const int n = static_cast<int>(b0 - 1.0);
    if (n >= 1) {
      double c = 1.0;
      for (int i = 1; i <= n; ++i) {
        b0 = b0 - 1.0;
        c = c * (b0 / (a0 + b0));
      }
      u = std::log(c) + u;
    }
    z = z - u;  // L70
    b0 = b0 - 1.0;
    const double apb = a0 + b0;
    double t;
    if (apb <= 1.0) {
      t = 1.0 + gam1(apb);
    } else {
      u = a0 + b0 - 1.0;  // L71
      t = (1.0 + gam1(u)) / apb;
    }
    return a0 * esum(mu, z) * (1.0 + gam1(b0)) / t;  // L72
  }

  // Algorithm for b0 <= 1
  double result = esum(mu, z);
  if (result == 0.0) return result;
  const double apb = a + b;
  if (apb <= 1.0) {
    z = 1.0 + gam1(apb);
  } else {
    const double u = a + b - 1.0;  // L40
    z = (1.0 + gam1(u)) / apb;
  }
  const double c = (1.0 + gam1(a)) * (1.0 + gam1(b)) / z;  // L50
  return result * (a0 * c) / (1.0 + a0 / b0);
}

}  // namespace vardel::inc_beta
