#include "timing/stopwatch.hpp"

#include <sys/resource.h>

#include <chrono>

namespace vardel {

namespace {

double seconds(const timeval& tv) {
  return static_cast<double>(tv.tv_sec) + static_cast<double>(tv.tv_usec) * 1e-6;
}

}  // namespace

ClockReading Stopwatch::now() {
  ClockReading r;
  rusage usage{};
  if (getrusage(RUSAGE_SELF, &usage) == 0) {
    r.user = seconds(usage.ru_utime);
    r.sys = seconds(usage.ru_stime);
  }
  r.cpu = r.user + r.sys;
  using std::chrono::duration;
  r.wall = duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
  return r;
}

void Stopwatch::start() {
  start_ = now();
  running_ = true;
}

void Stopwatch::stop() {
  if (!running_) return;
  stop_ = now();
  running_ = false;
}

ClockReading Stopwatch::read() const {
  const ClockReading end = running_ ? now() : stop_;
  return {end.cpu - start_.cpu, end.user - start_.user, end.sys - start_.sys,
          end.wall - start_.wall};
}

}  // namespace vardel
