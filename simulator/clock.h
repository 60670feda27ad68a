#pragma once

#include <chrono>

namespace vireon::simulator {

// The instrument's only source of time.
class Clock {
 public:
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  // Time since the instrument was switched on; never goes back.
  virtual std::chrono::nanoseconds now() const = 0;

  // Lets `duration` pass; nothing happens for a duration of 0 or below.
  virtual void wait(std::chrono::nanoseconds duration) = 0;
};

// Stands still until it is told to move; wait() moves it and returns at once.
class ManualClock : public Clock {
 public:
  std::chrono::nanoseconds now() const override { return now_; }
  void wait(std::chrono::nanoseconds duration) override { advance(duration); }

  // Moves on by `duration`; a duration below 0 is taken as 0.
  void advance(std::chrono::nanoseconds duration);

 private:
  std::chrono::nanoseconds now_{0};
};

// Runs with the computer's monotonic clock from its construction; wait() sleeps the calling thread.
class SteadyClock : public Clock {
 public:
  std::chrono::nanoseconds now() const override;
  void wait(std::chrono::nanoseconds duration) override;

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace vireon::simulator
