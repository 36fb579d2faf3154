// In-place ascending sorts of double arrays.
//
// sort(arr): heap sort of arr.
// sort2(arr, slave): ranks arr with indexx and puts both arrays in that
// order, so slave follows arr (equal keys in indexx's order). A size mismatch
// stops the run through assert_eq2 with the tag "sort2".
#pragma once

#include <span>

namespace vardel {

void sort(std::span<double> arr);
void sort2(std::span<double> arr, std::span<double> slave);

}  // namespace vardel
