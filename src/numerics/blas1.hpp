// Level-1 vector kernels used by the singular value decomposition: Euclidean
// norm, dot product, scaled addition, scaling, exchange, and the construction
// and application of a plane (Givens) rotation.
//
// These are the classic reference forms with unit stride: every sum is a
// plain loop from the first element to the last, so results are reproducible
// to the bit. The length of each operation is the length of its first span;
// a second span must be at least as long.
#pragma once

#include <span>

namespace vardel {

// Euclidean norm of x, accumulated as scale * sqrt(ssq) to avoid overflow
// and destructive underflow.
double dnrm2(std::span<const double> x);

// Sum of x(i) * y(i).
double ddot(std::span<const double> x, std::span<const double> y);

// y := a * x + y. Nothing is done when a is zero.
void daxpy(double a, std::span<const double> x, std::span<double> y);

// x := a * x.
void dscal(double a, std::span<double> x);

// Exchange the contents of x and y.
void dswap(std::span<double> x, std::span<double> y);

// Apply the rotation (c, s) to the pairs (x(i), y(i)):
// x := c * x + s * y, y := c * y - s * x.
void drot(std::span<double> x, std::span<double> y, double c, double s);

// Construct the rotation that zeroes b against a. On return a holds r, the
// length of (a, b) carrying the sign of the larger of the two, b holds z, the
// reconstruction parameter, and (c, s) the rotation itself.
void drotg(double& a, double& b, double& c, double& s);

}  // namespace vardel
