// How a run ends early.
//
// Routines that must end the run (a fatal input error, a failed internal
// check) call stop_run(). It throws RunStopped, which unwinds to main(), where
// files are closed and the process exits with the given status. Tests catch
// RunStopped to see that a run would have ended.
#pragma once

namespace vardel {

struct RunStopped {
  int status;  // exit status of the process
};

[[noreturn]] inline void stop_run(int status = 1) {
  throw RunStopped{status};
}

}  // namespace vardel
