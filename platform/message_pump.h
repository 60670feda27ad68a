#pragma once

#include <chrono>

namespace vireon::platform {

// Lets the program's events happen while a handler waits: input, timers, arrivals, painting.
class MessagePump {
 public:
  MessagePump() = default;
  MessagePump(const MessagePump&) = delete;
  MessagePump& operator=(const MessagePump&) = delete;
  virtual ~MessagePump() = default;

  // Handles what is waiting and returns; at once when nothing is.
  virtual void pump() = 0;

  // Sleeps until something happens, without a limit, and handles it.
  virtual void wait() = 0;

  // The same, but sleeps no longer than `limit`.
  virtual void waitAtMost(std::chrono::milliseconds limit) = 0;
};

}  // namespace vireon::platform
