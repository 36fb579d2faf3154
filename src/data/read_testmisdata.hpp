// The readers of a second data file: a test sample for pruning, or cases whose
// classes are to be predicted. Both reuse the learning sample's layout,
// missing-value code and category codes, ask for the file name on standard
// input, and fill the test arrays of the run settings (testfile, ntest,
// xtest, misindtest, ytest).
//
// read_testmisdata reads files with a class label column;
// read_testmis_no_class reads files without one.
#pragma once

namespace vardel {

void read_testmisdata();
void read_testmis_no_class();

}  // namespace vardel
