// The options this version asks for and records but cannot run yet.
//
// The dialogue accepts every option so that batch files stay complete; a run
// whose settings need a missing routine ends right after the run header.
#pragma once

namespace vardel {

// The first option of the run settings that this version cannot carry out,
// as a short phrase, or null when the run can go on.
const char* unavailable_option();

// Ends the run (status 4) with one line on the screen and at the end of the
// output file if unavailable_option() names something.
void stop_if_unavailable();

}  // namespace vardel
