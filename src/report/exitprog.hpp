// exitprog: the last step of a run that cannot go on, and of batch-file
// creation. Asks for ENTER, waits for one line and ends the run without an
// error status.
#pragma once

namespace vardel {

[[noreturn]] void exitprog();

}  // namespace vardel
