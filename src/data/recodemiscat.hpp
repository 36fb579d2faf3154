// recodemiscat: numbers the categories of each categorical predictor by
// their first appearance among the present values, fills numcat and
// catlabel, and rewrites the tokens of those columns with the codes.
//
// A missing value holds the token "0", which is no category code, unless a
// category is itself labelled "0": then the missing cases take its code too
// (their misind stays 'y').
#pragma once

#include "data/text_table.hpp"
#include "run/init.hpp"

namespace vardel {

// x: the nobs by nvar table of predictor tokens.
void recodemiscat(Init& in, TextTable& x);

}  // namespace vardel
