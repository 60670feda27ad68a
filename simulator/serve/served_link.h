#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "simulator/faults.h"

namespace vireon::simulator {

// What a link waits for: events, as poll() names them, on a descriptor (-1: none), and a time on the clock.
struct Wake {
  int descriptor = -1;
  short events = 0;
  std::optional<std::chrono::nanoseconds> at{};
};

// One way for another process to reach the instrument. Failures of the system are thrown as
// std::runtime_error.
class ServedLink {
 public:
  ServedLink() = default;
  ServedLink(const ServedLink&) = delete;
  ServedLink& operator=(const ServedLink&) = delete;
  virtual ~ServedLink() = default;

  // What the other process opens.
  virtual std::string path() const = 0;

  // Does everything that is possible now, without waiting.
  virtual void serve() = 0;
  virtual Wake wake() const = 0;

  virtual void plug() = 0;
  virtual void unplug() = 0;
  virtual bool plugged() const = 0;

  // Replaces all faults. Throws UsageError for one that cannot be served here.
  virtual void setFaults(const Faults& faults) = 0;
};

}  // namespace vireon::simulator
