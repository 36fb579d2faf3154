// print_info: the run header that opens the output file.
//
// Replaces the output file and writes who ran what, with which data and
// options, as they stand after the dialogue. Reads only the run settings.
#pragma once

namespace vardel {

void print_info();

// Share of missing cells of the learning sample in percent, in single
// precision: the 'y' flags left in misind over nvar times nobs.
float missing_percentage();

// Number of learning cases with at least one missing value flagged.
int cases_with_missing();

}  // namespace vardel
