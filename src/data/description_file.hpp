// The variable description file: which data file to read, the missing-value
// code, and for each variable its column, name and type.
//
// read_description asks for the file's name until it opens, reads and checks
// it, and fills dscfile, datafile, misscode, dname, nexcl, vxname, alltype,
// vname, vtype, ncat and catpos of the run settings. A fault ends the run
// through exitprog after its message.
#pragma once

#include "run/init.hpp"

namespace vardel {

struct DescriptionSummary {
  int nall = 0;     // variables in the file, "x" included
  int dcolumn = 0;  // column number of the dependent variable as written
};

DescriptionSummary read_description(Init& in);

}  // namespace vardel
