#include "timing/clock.hpp"

#include <ctime>

namespace vardel {

FixedClocks& fixed_clocks() {
  static FixedClocks fixed;
  return fixed;
}

DateTime local_date_time() {
  if (fixed_clocks().date) return *fixed_clocks().date;
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min};
}

Stopwatch& run_stopwatch() {
  static Stopwatch watch;
  return watch;
}

ClockReading run_elapsed() {
  if (fixed_clocks().elapsed) return *fixed_clocks().elapsed;
  return run_stopwatch().read();
}

}  // namespace vardel
