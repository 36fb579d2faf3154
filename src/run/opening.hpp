// The opening of a run: the banner, the menu, the batch file and the output file.
#pragma once

#include "run/batch_file.hpp"

namespace vardel {

// Writes the two banner lines.
void write_banner();

// Asks the menu question. Answer 0 writes the warranty text and ends the run;
// answer 2 asks for the batch file, opens it into `batch` and writes its first
// line. Returns the answer (1 or 2).
int opening_menu(BatchFile& batch);

// Asks for the output file; it is left existing and empty.
void ask_output_file(int menu, BatchFile& batch);

}  // namespace vardel
