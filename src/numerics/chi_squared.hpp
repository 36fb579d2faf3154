// The chi-square distribution and the functions under it.
//
// chi_squared(df, chisq): lower-tail probability P(X <= chisq) for X with df
//   degrees of freedom; the upper tail is 1.0 minus it. 0.0 for chisq <= 0.
// gammad(x, shape): the regularised lower incomplete gamma integral P(shape, x)
//   (Shea 1988, Applied Statistics algorithm AS 239); 0.0, silently, unless
//   x and shape are both above 0.
// alnorm(z, upper): the standard normal tail area above z when upper, below z
//   otherwise (Hill 1973, AS 66).
// lngamma(z): ln Gamma(z) for z > 0 (Lanczos approximation); for z <= 0 it
//   writes an error line to std::cout and returns 0.0.
#pragma once

namespace vardel {

double chi_squared(int df, double chisq);
double gammad(double x, double shape);
double alnorm(double z, bool upper);
double lngamma(double z);

}  // namespace vardel
