// Small node data sets for the split tests, written column by column.
#pragma once

#include <cmath>
#include <initializer_list>
#include <vector>

#include "numerics/farray.hpp"

namespace vardel::split_test {

inline FArray<double> columns(std::initializer_list<std::vector<double>> cols) {
  const auto n = static_cast<FArray<double>::Index>(cols.begin()->size());
  FArray<double> x(n, static_cast<FArray<double>::Index>(cols.size()), 0.0);
  int j = 0;
  for (const auto& col : cols) {
    ++j;
    for (int i = 1; i <= n; ++i) x(i, j) = col[static_cast<std::size_t>(i - 1)];
  }
  return x;
}

// misind of the same shape as x: 'y' where the cell equals the marker value.
inline FArray<char> missing_where(const FArray<double>& x, double marker) {
  FArray<char> mis(x.extent1(), x.extent2(), 'n');
  for (int i = 1; i <= x.size(); ++i) {
    if (x(i) == marker) mis(i) = 'y';
  }
  return mis;
}

// Upper tail of F with 2 and d2 degrees of freedom, in closed form.
inline double f2_upper_tail(double f, double d2) {
  return std::pow(1.0 + 2.0 * f / d2, -d2 / 2.0);
}

}  // namespace vardel::split_test
