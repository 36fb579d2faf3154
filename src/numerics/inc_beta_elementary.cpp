// Elementary functions to full relative accuracy near their awkward points:
// alnrel = ln(1 + a), rlog1 = x - ln(1 + x), rexp = exp(x) - 1,
// esum = exp(mu + x), erf, and erfc1 = erfc(x) or exp(x*x)*erfc(x).
#include <cmath>

#include "numerics/constants_nswc.hpp"
#include "numerics/inc_beta.hpp"

namespace vardel::inc_beta {

double alnrel(double a) {
  const double p1 = -.129418923021993e+01;
  const double p2 = .405303492862024e+00;
  const double p3 = -.178874546012214e-01;
  const double q1 = -.162752256355323e+01;
  const double q2 = .747811014037616e+00;
  const double q3 = -.845104217945565e-01;

  if (std::fabs(a) > 0.375) {
    const double x = 1.0 + a;  // L10
    return std::log(x);
  }
  const double t = a / (a + 2.0);
  const double t2 = t * t;
  const double w =
      (((p3 * t2 + p2) * t2 + p1) * t2 + 1.0) / (((q3 * t2 + q2) * t2 + q1) * t2 + 1.0);
  return 2.0 * t * w;
}

double rlog1(double x) {
  const double a = .566749439387324e-01;
  const double b = .456512608815524e-01;
  const double p0 = .333333333333333e+00;
  const double p1 = -.224696413112536e+00;
  const double p2 = .620886815375787e-02;
  const double q1 = -.127408923933623e+01;
  const double q2 = .354508718369557e+00;

  if (x < -0.39 || x > 0.57) {
    const double w = (x + 0.5) + 0.5;  // L100
    return x - std::log(w);
  }
  double h;
  double w1;
  if (x < -0.18) {
    h = x + 0.3;  // L10
    h = h / 0.7;
    w1 = a - h * 0.3;
  } else if (x > 0.18) {
    h = 0.75 * x - 0.25;  // L20
    w1 = b + h / 3.0;
  } else {
    // Argument reduction
    h = x;
    w1 = 0.0;
  }
  // L30: series expansion
  const double r = h / (h + 2.0);
  const double t = r * r;
  const double w = ((p2 * t + p1) * t + p0) / ((q2 * t + q1) * t + 1.0);
  return 2.0 * t * (1.0 / (1.0 - r) - r * w) + w1;
}

double rexp(double x) {
  const double p1 = .914041914819518e-09;
  const double p2 = .238082361044469e-01;
  const double q1 = -.499999999085958e+00;
  const double q2 = .107141568980644e+00;
  const double q3 = -.119041179760821e-01;
  const double q4 = .595130811860248e-03;

  if (std::fabs(x) <= 0.15) {
    return x * (((p2 * x + p1) * x + 1.0) / ((((q4 * x + q3) * x + q2) * x + q1) * x + 1.0));
  }
  const double w = std::exp(x);  // L10
  if (x <= 0.0) return (w - 0.5) - 0.5;
  return w * (0.5 + (0.5 - 1.0 / w));  // L20
}

double esum(int mu, double x) {
  // One exponential when mu and x differ in sign and mu + x lies between 0
  // and x: it can then neither overflow nor underflow where exp(x) would not.
  // Otherwise the product of two.
  if (x > 0.0) {
    if (mu <= 0) {  // L10
      const double w = mu + x;
      if (w >= 0.0) return std::exp(w);
    }
  } else if (mu >= 0) {
    const double w = mu + x;
    if (w <= 0.0) return std::exp(w);
  }
  const double w = mu;  // L20
  return std::exp(w) * std::exp(x);
}

namespace {

// Rational approximations shared by erf and erfc1.
const double kA[6] = {0.0,
                      .771058495001320e-04,
                      -.133733772997339e-02,
                      .323076579225834e-01,
                      .479137145607681e-01,
                      .128379167095513e+00};
const double kB[4] = {0.0, .301048631703895e-02, .538971687740286e-01, .375795757275549e+00};
const double kP[9] = {0.0,
                      -1.36864857382717e-07,
                      5.64195517478974e-01,
                      7.21175825088309e+00,
                      4.31622272220567e+01,
                      1.52989285046940e+02,
                      3.39320816734344e+02,
                      4.51918953711873e+02,
                      3.00459261020162e+02};
const double kQ[9] = {0.0,
                      1.00000000000000e+00,
                      1.27827273196294e+01,
                      7.70001529352295e+01,
                      2.77585444743988e+02,
                      6.38980264465631e+02,
                      9.31354094850610e+02,
                      7.90950925327898e+02,
                      3.00459260956983e+02};
const double kR[6] = {0.0,
                      2.10144126479064e+00,
                      2.62370141675169e+01,
                      2.13688200555087e+01,
                      4.65807828718470e+00,
                      2.82094791773523e-01};
const double kS[5] = {0.0, 9.41537750555460e+01, 1.87114811799590e+02, 9.90191814623914e+01,
                      1.80124575948747e+01};
const double kC = .564189583547756;  // 1/sqrt(pi)

// The numerators and denominators of the three ranges |x| <= 0.5,
// 0.5 < |x| <= 4 and |x| > 4 (the last in t = 1/x**2).
double small_ratio(double t) {
  const double top = (((kA[1] * t + kA[2]) * t + kA[3]) * t + kA[4]) * t + kA[5] + 1.0;
  const double bot = ((kB[1] * t + kB[2]) * t + kB[3]) * t + 1.0;
  return top / bot;
}

double middle_top(double ax) {
  return ((((((kP[1] * ax + kP[2]) * ax + kP[3]) * ax + kP[4]) * ax + kP[5]) * ax + kP[6]) * ax +
          kP[7]) *
             ax +
         kP[8];
}
double middle_bot(double ax) {
  return ((((((kQ[1] * ax + kQ[2]) * ax + kQ[3]) * ax + kQ[4]) * ax + kQ[5]) * ax + kQ[6]) * ax +
          kQ[7]) *
             ax +
         kQ[8];
}

double large_top(double t) {
  return (((kR[1] * t + kR[2]) * t + kR[3]) * t + kR[4]) * t + kR[5];
}
double large_bot(double t) {
  return (((kS[1] * t + kS[2]) * t + kS[3]) * t + kS[4]) * t + 1.0;
}

}  // namespace

double erf(double x) {
  const double ax = std::fabs(x);
  if (ax <= 0.5) {
    const double t = x * x;
    return x * small_ratio(t);
  }
  double result;
  if (ax <= 4.0) {
    // L10
    result = 0.5 + (0.5 - std::exp(-x * x) * middle_top(ax) / middle_bot(ax));
  } else if (ax < 5.8) {
    // L20
    const double x2 = x * x;
    const double t = 1.0 / x2;
    result = (kC - large_top(t) / (x2 * large_bot(t))) / ax;
    result = 0.5 + (0.5 - std::exp(-x2) * result);
  } else {
    return std::copysign(1.0, x);  // L30
  }
  return x < 0.0 ? -result : result;
}

double erfc1(int ind, double x) {
  // |x| <= 0.5
  const double ax = std::fabs(x);
  if (ax <= 0.5) {
    const double t = x * x;
    double result = 0.5 + (0.5 - x * small_ratio(t));
    if (ind != 0) result = std::exp(t) * result;
    return result;
  }

  double result;
  if (ax <= 4.0) {
    // L10: 0.5 < |x| <= 4
    result = middle_top(ax) / middle_bot(ax);
  } else {
    // L20: |x| > 4
    if (x <= -5.6) {
      // L50: limit value for large negative x
      return ind != 0 ? 2.0 * std::exp(x * x) : 2.0;
    }
    // L60: limit value for large positive x when ind = 0
    if (ind == 0 && (x > 100.0 || x * x > -constants_nswc::exparg(1))) return 0.0;
    const double t = (1.0 / x) * (1.0 / x);  // L30
    result = (kC - t * large_top(t) / large_bot(t)) / ax;
  }

  // L40: final assembly
  if (ind != 0) {
    if (x < 0.0) result = 2.0 * std::exp(x * x) - result;
    return result;
  }
  // L41: exp(-x*x) as exp(-t) times a correction for the rounding of x*x,
  // which is nil when x*x is formed in the working precision.
  const double w = x * x;
  const double t = w;
  const double e = w - t;
  result = ((0.5 + (0.5 - e)) * std::exp(-t)) * result;
  if (x < 0.0) result = 2.0 - result;
  return result;
}

}  // namespace vardel::inc_beta
