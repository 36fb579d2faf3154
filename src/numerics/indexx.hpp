// Ranking: indexx and indexx_i4b.
//
// Input arr (not changed); output index, of the same size, filled with the
// positions 1..n of arr so that arr(index(1)), arr(index(2)), ... ascends
// (positions count from 1: arr[index[k] - 1] in span terms). The order given
// to equal keys is fixed by the partitioning quicksort below and callers rely
// on it: below 16 keys it is that of a stable insertion sort.
//
// A size mismatch stops the run through assert_eq2 (tag "indexx" or
// "indexx_i4b"); an overflowing partition stack stops it through nrerror.
#pragma once

#include <span>

namespace vardel {

void indexx(std::span<const double> arr, std::span<int> index);
void indexx_i4b(std::span<const int> arr, std::span<int> index);

}  // namespace vardel
