// The missing cells of a block of growth's table, column by column, and the
// resetting of those cells to +0.0.
#pragma once

#include <span>
#include <vector>

#include "numerics/farray.hpp"

namespace vardel {

// For each column of mis, the rows (from 1) that hold 'y'.
std::vector<std::vector<int>> missing_rows(FMatrixView<const char> mis);

// Sets the listed cells of x (rows from 1, a list per column) to +0.0.
void zero_cells(FMatrixView<double> x, std::span<const std::vector<int>> rows);

// Sets every cell of x whose flag in mis is 'y' to +0.0.
void zero_missing_cells(FMatrixView<double> x, FMatrixView<const char> mis);

}  // namespace vardel
