// The incomplete beta function ratio and its companion routines (module
// inc_beta), after Didonato and Morris, "Significant digit computation of the
// incomplete beta function ratios", ACM TOMS 18 (1992), algorithm 708.
//
// bratio(a, b, x, y) with y = 1 - x gives w = I_x(a, b) and w1 = 1 - w, each
// to full relative accuracy. ierr is 0 on success; otherwise w = w1 = 0 and
//   1: a or b negative        2: a = b = 0
//   3: x outside [0, 1]       4: y outside [0, 1]
//   5: x + y differs from 1   6: x = a = 0        7: y = b = 0
//
// The companions are exposed in namespace inc_beta so that each can be
// checked on its own; the comment on each says where it is valid.
#pragma once

namespace vardel {

void bratio(double a, double b, double x, double y, double& w, double& w1, int& ierr);

namespace inc_beta {

// Series and continued fraction for I_x(a, b) (inc_beta_series.cpp).
double fpser(double a, double b, double x, double eps);  // I_x(a,b), b < min(eps, eps*a), x <= .5
double apser(double a, double b, double x, double eps);  // I_{1-x}(b,a), a tiny, b*x <= 1, x <= .5
double bpser(double a, double b, double x, double eps);  // I_x(a,b), b <= 1 or b*x <= .7
double bup(double a, double b, double x, double y, int n, double eps);  // I_x(a,b) - I_x(a+n,b)
double bfrac(double a, double b, double x, double y, double lambda, double eps);  // a, b > 1

// Asymptotic expansions (inc_beta_asymptotic.cpp).
void bgrat(double a, double b, double x, double y, double& w, double eps, int& ierr);
void grat1(double a, double x, double r, double& p, double& q, double eps);
double basym(double a, double b, double lambda, double eps);

// Leading factors x**a * y**b / B(a,b), the second scaled by exp(mu)
// (inc_beta_factor.cpp).
double brcomp(double a, double b, double x, double y);
double brcmp1(int mu, double a, double b, double x, double y);

// Elementary functions to full relative accuracy (inc_beta_elementary.cpp).
double alnrel(double a);          // ln(1 + a)
double rlog1(double x);           // x - ln(1 + x)
double rexp(double x);            // exp(x) - 1
double esum(int mu, double x);    // exp(mu + x)
double erf(double x);             // error function
double erfc1(int ind, double x);  // erfc(x), or exp(x*x)*erfc(x) when ind != 0

// Gamma and beta function pieces (inc_beta_gamma.cpp).
double gam1(double a);                // 1/Gamma(a+1) - 1, -0.5 <= a <= 1.5
double gamln(double a);               // ln Gamma(a), a > 0
double gamln1(double a);              // ln Gamma(1 + a), -0.2 <= a <= 1.25
double algdiv(double a, double b);    // ln(Gamma(b) / Gamma(a+b)), b >= 8
double psi(double x);                 // digamma; 0 where it cannot be computed
double betaln(double a0, double b0);  // ln B(a0, b0)
double gsumln(double a, double b);    // ln Gamma(a+b), 1 <= a, b <= 2
double bcorr(double a0, double b0);   // del(a0) + del(b0) - del(a0+b0), a0, b0 >= 8

}  // namespace inc_beta
}  // namespace vardel
