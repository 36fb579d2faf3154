// Machine limits used by the incomplete beta routines (module constants_nswc).
//
// ipmpar(i) gives the integer machine constants, dpmpar(i) the double ones
// (1: machine precision, 2: smallest normal magnitude, 3: largest magnitude),
// exparg(l) the bounds on the argument of exp (l = 0: largest w for which
// exp(w) is finite; l != 0: most negative w for which exp(w) is non-zero),
// epsln() the logarithm of the machine precision. Every real of the routines
// that use these limits is a double, so the "single" forms spmpar, epsln and
// exparg give the same values as dpmpar, depsln and dxparg.
#pragma once

namespace vardel::constants_nswc {

// 1: integer base, 2: integer digits, 3: largest integer,
// 4: floating base, 5-7: float digits, min and max exponent,
// 8-10: double digits, min and max exponent. Any other i gives 0.
int ipmpar(int i);

double dpmpar(int i);
double spmpar(int i);

double depsln();
double epsln();

double dxparg(int l);
double exparg(int l);

}  // namespace vardel::constants_nswc
