// Stopwatch: cpu, user, system and wall clocks of a run, in seconds.
//
// start() takes a reading of all four clocks; stop() takes another; read()
// gives the time between the two (or up to now, while running). cpu is user
// plus system time of this process.
#pragma once

namespace vardel {

struct ClockReading {
  double cpu = 0.0;
  double user = 0.0;
  double sys = 0.0;
  double wall = 0.0;
};

class Stopwatch {
 public:
  void start();
  void stop();
  bool running() const { return running_; }
  // Elapsed seconds on each clock: up to stop(), or up to now while running.
  ClockReading read() const;

  static ClockReading now();

 private:
  ClockReading start_{};
  ClockReading stop_{};
  bool running_ = false;
};

}  // namespace vardel
