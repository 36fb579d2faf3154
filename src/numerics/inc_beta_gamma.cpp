// Gamma and beta function pieces for the incomplete beta routines:
// gam1, gamln, gamln1, algdiv, psi (digamma), betaln, gsumln and bcorr.
// del(x) below is the remainder of Stirling's formula,
// ln Gamma(x) = (x - 0.5)*ln(x) - x + 0.5*ln(2*pi) + del(x).
#include <algorithm>
#include <cmath>

#include "numerics/constants_nswc.hpp"
#include "numerics/inc_beta.hpp"

namespace vardel::inc_beta {

namespace {

// Coefficients of the asymptotic series of del(x) in 1/x**2.
const double kC0 = .833333333333333e-01;
const double kC1 = -.277777777760991e-02;
const double kC2 = .793650666825390e-03;
const double kC3 = -.595202931351870e-03;
const double kC4 = .837308034031215e-03;
const double kC5 = -.165322962780713e-02;

// del(b) - del(a + b) for b >= 8, where h = a/b, c = h/(1 + h), x = 1/(1 + h).
double del_difference(double b, double c, double x) {
  // Set sn = (1 - x**n) / (1 - x)
  const double x2 = x * x;
  const double s3 = 1.0 + (x + x2);
  const double s5 = 1.0 + (x + x2 * s3);
  const double s7 = 1.0 + (x + x2 * s5);
  const double s9 = 1.0 + (x + x2 * s7);
  const double s11 = 1.0 + (x + x2 * s9);

  const double r = 1.0 / b;
  const double t = r * r;
  double w =
      ((((kC5 * s11 * t + kC4 * s9) * t + kC3 * s7) * t + kC2 * s5) * t + kC1 * s3) * t + kC0;
  w = w * (c / b);
  return w;
}

}  // namespace

double gam1(double a) {
  const double p[8] = {0.0,
                       .577215664901533e+00,
                       -.409078193005776e+00,
                       -.230975380857675e+00,
                       .597275330452234e-01,
                       .766968181649490e-02,
                       -.514889771323592e-02,
                       .589597428611429e-03};
  const double q[6] = {0.0,
                       .100000000000000e+01,
                       .427569613095214e+00,
                       .158451672430138e+00,
                       .261132021441447e-01,
                       .423244297896961e-02};
  const double r[10] = {0.0,
                        -.422784335098468e+00,
                        -.771330383816272e+00,
                        -.244757765222226e+00,
                        .118378989872749e+00,
                        .930357293360349e-03,
                        -.118290993445146e-01,
                        .223047661158249e-02,
                        .266505979058923e-03,
                        -.132674909766242e-03};
  const double s1 = .273076135303957e+00;
  const double s2 = .559398236957378e-01;

  double t = a;
  const double d = a - 0.5;
  if (d > 0.0) t = d - 0.5;
  if (t == 0.0) return 0.0;  // L10
  if (t > 0.0) {
    // L20
    const double top =
        (((((p[7] * t + p[6]) * t + p[5]) * t + p[4]) * t + p[3]) * t + p[2]) * t + p[1];
    const double bot = (((q[5] * t + q[4]) * t + q[3]) * t + q[2]) * t + 1.0;
    const double w = top / bot;
    if (d > 0.0) return (t / a) * ((w - 0.5) - 0.5);  // L21
    return a * w;
  }
  // L30
  const double top =
      (((((((r[9] * t + r[8]) * t + r[7]) * t + r[6]) * t + r[5]) * t + r[4]) * t + r[3]) * t +
       r[2]) *
          t +
      r[1];
  const double bot = (s2 * t + s1) * t + 1.0;
  const double w = top / bot;
  if (d > 0.0) return t * w / a;  // L31
  return a * ((w + 0.5) + 0.5);
}

double gamln(double a) {
  const double d = .418938533204673;  // 0.5*(ln(2*pi) - 1)

  if (a <= 0.8) return gamln1(a) - std::log(a);
  if (a <= 2.25) {  // L10
    const double t = (a - 0.5) - 0.5;
    return gamln1(t);
  }
  if (a < 10.0) {  // L20
    const int n = static_cast<int>(a - 1.25);
    double t = a;
    double w = 1.0;
    for (int i = 1; i <= n; ++i) {
      t = t - 1.0;
      w = t * w;
    }
    return gamln1(t - 1.0) + std::log(w);
  }
  // L30
  const double r = 1.0 / a;
  const double t = r * r;
  const double w = (((((kC5 * t + kC4) * t + kC3) * t + kC2) * t + kC1) * t + kC0) / a;
  return (d + w) + (a - 0.5) * (std::log(a) - 1.0);
}

double gamln1(double a) {
  const double p0 = .577215664901533e+00;
  const double p1 = .844203922187225e+00;
  const double p2 = -.168860593646662e+00;
  const double p3 = -.780427615533591e+00;
  const double p4 = -.402055799310489e+00;
  const double p5 = -.673562214325671e-01;
  const double p6 = -.271935708322958e-02;
  const double q1 = .288743195473681e+01;
  const double q2 = .312755088914843e+01;
  const double q3 = .156875193295039e+01;
  const double q4 = .361951990101499e+00;
  const double q5 = .325038868253937e-01;
  const double q6 = .667465618796164e-03;

  const double r0 = .422784335098467e+00;
  const double r1 = .848044614534529e+00;
  const double r2 = .565221050691933e+00;
  const double r3 = .156513060486551e+00;
  const double r4 = .170502484022650e-01;
  const double r5 = .497958207639485e-03;
  const double s1 = .124313399877507e+01;
  const double s2 = .548042109832463e+00;
  const double s3 = .101552187439830e+00;
  const double s4 = .713309612391000e-02;
  const double s5 = .116165475989616e-03;

  if (a < 0.6) {
    const double w = ((((((p6 * a + p5) * a + p4) * a + p3) * a + p2) * a + p1) * a + p0) /
                     ((((((q6 * a + q5) * a + q4) * a + q3) * a + q2) * a + q1) * a + 1.0);
    return -a * w;
  }
  const double x = (a - 0.5) - 0.5;  // L10
  const double w = (((((r5 * x + r4) * x + r3) * x + r2) * x + r1) * x + r0) /
                   (((((s5 * x + s4) * x + s3) * x + s2) * x + s1) * x + 1.0);
  return x * w;
}

double algdiv(double a, double b) {
  double h;
  double c;
  double x;
  double d;
  if (a > b) {
    h = b / a;
    c = 1.0 / (1.0 + h);
    x = h / (1.0 + h);
    d = a + (b - 0.5);
  } else {
    h = a / b;  // L10
    c = h / (1.0 + h);
    x = 1.0 / (1.0 + h);
    d = b + (a - 0.5);
  }
  // L20: set w = del(b) - del(a + b)
  const double w = del_difference(b, c, x);

  // Combine the results
  const double u = d * alnrel(a / b);
  const double v = a * (std::log(b) - 1.0);
  if (u > v) return (w - v) - u;
  return (w - u) - v;  // L30
}

// Digamma function, from the rational Chebyshev approximations of Cody,
// Strecok and Thacher (Math. Comp. 27, 1973), with the reflection formula
// psi(1 - x) = psi(x) + pi*cot(pi*x) below 0.5.
double psi(double xx) {
  const double piov4 = .785398163397448e0;                    // pi/4
  const double dx0 = 1.461632144968362341262659542325721325;  // zero of psi

  // psi(x) / (x - x0), 0.5 <= x <= 3.0
  const double p1[8] = {0.0,
                        .895385022981970e-02,
                        .477762828042627e+01,
                        .142441585084029e+03,
                        .118645200713425e+04,
                        .363351846806499e+04,
                        .413810161269013e+04,
                        .130560269827897e+04};
  const double q1[7] = {0.0,
                        .448452573429826e+02,
                        .520752771467162e+03,
                        .221000799247830e+04,
                        .364127349079381e+04,
                        .190831076596300e+04,
                        .691091682714533e-05};
  // psi(x) - ln(x) + 1/(2x), x > 3.0
  const double p2[5] = {0.0, -.212940445131011e+01, -.701677227766759e+01, -.448616543918019e+01,
                        -.648157123766197e+00};
  const double q2[5] = {0.0, .322703493791143e+02, .892920700481861e+02, .546117738103215e+02,
                        .777788548522962e+01};

  // xmax1: the smallest float with entirely integer representation; also the
  // bound on negative arguments and the point beyond which psi(x) = ln(x).
  // xsmall: below it pi*cot(pi*x) may be taken as 1/x.
  double xmax1 = constants_nswc::ipmpar(3);
  xmax1 = std::min(xmax1, 1.0 / constants_nswc::spmpar(1));
  const double xsmall = 1.e-9;

  double x = xx;
  double aug = 0.0;
  if (x < 0.5) {
    // x < 0.5: use the reflection formula
    if (std::fabs(x) <= xsmall) {
      if (x == 0.0) return 0.0;  // L400
      // 0 < |x| <= xsmall: 1/x stands for pi*cot(pi*x)
      aug = -1.0 / x;
    } else {
      // L100: reduction of the argument for cot
      double w = -x;
      double sgn = piov4;
      if (w <= 0.0) {
        w = -w;
        sgn = -sgn;
      }
      // L120: error exit for x <= -xmax1
      if (w >= xmax1) return 0.0;
      int nq = static_cast<int>(w);
      w = w - nq;
      nq = static_cast<int>(w * 4.0);
      w = 4.0 * (w - nq * .25);
      // w is now related to the fractional part of 4*x. Adjust the argument
      // to the first quadrant and determine the sign.
      int n = nq / 2;
      if ((n + n) != nq) w = 1.0 - w;
      const double z = piov4 * w;
      int m = n / 2;
      if ((m + m) != n) sgn = -sgn;
      // Determine the final value of -pi*cot(pi*x)
      n = (nq + 1) / 2;
      m = n / 2;
      m = m + m;
      if (m != n) {
        aug = sgn * ((std::sin(z) / std::cos(z)) * 4.0);  // L140
      } else {
        if (z == 0.0) return 0.0;  // singularity
        // cos/sin stands for cot and sin/cos for tan
        aug = sgn * ((std::cos(z) / std::sin(z)) * 4.0);
      }
    }
    x = 1.0 - x;  // L150
  }

  // L200
  if (x <= 3.0) {
    // 0.5 <= x <= 3.0
    double den = x;
    double upper = p1[1] * x;
    for (int i = 1; i <= 5; ++i) {
      den = (den + q1[i]) * x;
      upper = (upper + p1[i + 1]) * x;
    }
    den = (upper + p1[7]) / (den + q1[6]);
    const double xmx0 = x - dx0;
    return den * xmx0 + aug;
  }
  // L300: 3.0 < x < xmax1; beyond xmax1 psi(x) = ln(x)
  if (x < xmax1) {
    const double w = 1.0 / (x * x);
    double den = w;
    double upper = p2[1] * w;
    for (int i = 1; i <= 3; ++i) {
      den = (den + q2[i]) * w;
      upper = (upper + p2[i + 1]) * w;
    }
    aug = upper / (den + q2[4]) - 0.5 / x + aug;
  }
  return aug + std::log(x);  // L350
}

double betaln(double a0, double b0) {
  const double e = .918938533204673;  // 0.5*ln(2*pi)

  double a = std::min(a0, b0);
  double b = std::max(a0, b0);
  if (a >= 8.0) {
    // L60: procedure when a >= 8
    const double w = bcorr(a, b);
    const double h = a / b;
    const double c = h / (1.0 + h);
    const double u = -(a - 0.5) * std::log(c);
    const double v = b * alnrel(h);
    if (u > v) return (((-0.5 * std::log(b) + e) + w) - v) - u;
    return (((-0.5 * std::log(b) + e) + w) - u) - v;  // L61
  }
  if (a < 1.0) {
    // Procedure when a < 1
    if (b < 8.0) return gamln(a) + (gamln(b) - gamln(a + b));
    return gamln(a) + algdiv(a, b);  // L10
  }

  // Procedure when 1 <= a < 8
  double w;
  if (a <= 2.0) {
    // L20
    if (b <= 2.0) return gamln(a) + gamln(b) - gsumln(a, b);
    w = 0.0;  // L21
    if (b >= 8.0) return gamln(a) + algdiv(a, b);
  } else if (b > 1000.0) {
    // L50: reduction of a when b > 1000
    const int n = static_cast<int>(a - 1.0);
    w = 1.0;
    for (int i = 1; i <= n; ++i) {
      a = a - 1.0;
      w = w * (a / (1.0 + a / b));
    }
    return (std::log(w) - n * std::log(b)) + (gamln(a) + algdiv(a, b));
  } else {
    // L30: reduction of a when b <= 1000
    const int n = static_cast<int>(a - 1.0);
    w = 1.0;
    for (int i = 1; i <= n; ++i) {
      a = a - 1.0;
      const double h = a / b;
      w = w * (h / (1.0 + h));
    }
    w = std::log(w);
    if (b >= 8.0) return w + gamln(a) + algdiv(a, b);
  }

  // L40: reduction of b when b < 8
  const int n = static_cast<int>(b - 1.0);
  double z = 1.0;
  for (int i = 1; i <= n; ++i) {
    b = b - 1.0;
    z = z * (b / (a + b));
  }
  return w + std::log(z) + (gamln(a) + (gamln(b) - gsumln(a, b)));
}

double gsumln(double a, double b) {
  const double x = a + b - 2.0;
  if (x <= 0.25) return gamln1(1.0 + x);
  if (x <= 1.25) return gamln1(x) + alnrel(x);       // L10
  return gamln1(x - 1.0) + std::log(x * (1.0 + x));  // L20
}

double bcorr(double a0, double b0) {
  const double a = std::min(a0, b0);
  const double b = std::max(a0, b0);

  const double h = a / b;
  const double c = h / (1.0 + h);
  const double x = 1.0 / (1.0 + h);
  // Set w = del(b) - del(a + b)
  const double w = del_difference(b, c, x);

  // Compute del(a) + w
  const double r = 1.0 / a;
  const double t = r * r;
  return (((((kC5 * t + kC4) * t + kC3) * t + kC2) * t + kC1) * t + kC0) / a + w;
}

}  // namespace vardel::inc_beta
