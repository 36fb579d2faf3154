// The missing cells of a block of growth's table, column by column, and the
// resetting of those cells to +0.0.
#pragma once

#include <span>
#include <vector>

#include "numerics/farray.hpp"

namespace vardel {

// For each column of a block, its rows (from 1) with a missing cell.
using MissingRows = std::vector<std::vector<int>>;

// For each column of mis, the rows (from 1) that hold 'y'.
MissingRows missing_rows(FMatrixView<const char> mis);

// The missing rows of each subnode when a block splits: row r (from 1) goes
// to subnode sub[r - 1] (1..K), at row dest[r - 1] + 1 of the block, whose
// subnode k starts after row start[k - 1].
std::vector<MissingRows> subnode_missing_rows(const MissingRows& rows, std::span<const int> sub,
                                              std::span<const int> dest,
                                              std::span<const int> start);

// The flags of a block split into subnodes: 'y' at their missing rows, 'n'
// elsewhere.
void write_flags(FMatrixView<char> mis, const std::vector<MissingRows>& sub_rows,
                 std::span<const int> start);

// Sets the listed cells of x to +0.0.
void zero_cells(FMatrixView<double> x, const MissingRows& rows);

}  // namespace vardel
