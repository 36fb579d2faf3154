// pour_test_print: pouring for the final prediction of a test sample.
//
// The same walk and table as pour_test, and besides: termid, the terminal
// node each case reached, and the prediction file (init().predictfile,
// replaced), one row per case in file order. With a class column
// (init().testlabel 'y') a row holds the case number, the terminal node,
// the true label (blank for a class code of 0; no row for a negative code)
// and the predicted label; without one, the case number, the terminal node
// and the predicted label. Labels are trimmed and stand right-aligned in
// columns one wider than the longest label.
#pragma once

#include <span>

#include "numerics/farray.hpp"

namespace vardel {

void pour_test_print(FArray<int>& table, FArray<double>& x, std::span<const int> y,
                     const FArray<char>& mis, int n, FArray<int>& termid);

}  // namespace vardel
