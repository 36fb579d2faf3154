// The run driver: one run from the banner to the last message.
#pragma once

namespace vardel {

// Runs VARDEL on standard input and output; returns the exit status.
int run_program();

}  // namespace vardel
