// The date and time of the run, and the elapsed times of its stopwatch.
//
// Both come from the system's clocks, unless a test has fixed them so that
// whole output files can be compared byte for byte.
#pragma once

#include <optional>

#include "timing/stopwatch.hpp"

namespace vardel {

struct DateTime {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
};

struct FixedClocks {
  std::optional<DateTime> date;         // replaces the local date and time
  std::optional<ClockReading> elapsed;  // replaces the stopwatch's reading
};

// The clocks fixed for tests; empty in a real run.
FixedClocks& fixed_clocks();

// Local date and time now (or the fixed one).
DateTime local_date_time();

// The run's stopwatch: started before the run header, read at the end.
Stopwatch& run_stopwatch();
// Elapsed seconds of the run's stopwatch (or the fixed reading).
ClockReading run_elapsed();

}  // namespace vardel
