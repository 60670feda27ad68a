#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <stdexcept>
#include <utility>

#include "form/timer.h"
#include "platform/message_pump.h"
#include "tests/fakes/fake_serial_port.h"

namespace vireon::tests {

// A message pump whose wait() does one thing: what a test has planned (`happenings`), else lets the next
// serial chunk arrive, else lets the answer time-out pass. A wait in which nothing could ever happen is an
// endless one and throws.
class FakeMessagePump final : public platform::MessagePump {
 public:
  explicit FakeMessagePump(FakeSerialPort& port) : port_(port) {}

  form::Timer* timeOut = nullptr;                // the answer time-out; set it first
  std::deque<std::function<void()>> happenings;  // one for each wait(), in order
  std::deque<std::function<void()>> atPump;      // one for each pump(), in order
  std::size_t waits = 0;
  std::size_t pumps = 0;
  std::size_t limitedWaits = 0;
  std::size_t timeOuts = 0;
  std::function<void(std::chrono::milliseconds)> atLimitedWait;  // what each waitAtMost() does
  int lastTimeOut = 0;  // interval of the time-out that passed last, milliseconds

  void pump() override {
    ++pumps;
    if (!atPump.empty()) {
      const auto happening = std::exchange(atPump.front(), {});
      atPump.pop_front();
      happening();
    }
  }

  void wait() override {
    ++waits;
    if (!happenings.empty()) {
      const auto happening = std::exchange(happenings.front(), {});
      happenings.pop_front();
      happening();
    } else if (!port_.deliver()) {
      if (!timeOut->enabled() || timeOut->interval() == 0) {
        throw std::logic_error("endless wait");
      }
      ++timeOuts;
      lastTimeOut = timeOut->interval();
      timeOut->tick();
    }
  }

  void waitAtMost(std::chrono::milliseconds limit) override {
    ++limitedWaits;
    if (!atLimitedWait) {
      throw std::logic_error("endless wait");
    }
    atLimitedWait(limit);
  }

 private:
  FakeSerialPort& port_;
};

}  // namespace vireon::tests
