#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

namespace vireon::soak {

// Knows when the computer stood still: on each processor a thread that does nothing but sleep comes late
// then. A host of virtual machines may stop one or slow it down, and have the program seem to compute
// meanwhile.
class StallWatch {
 public:
  StallWatch();
  StallWatch(const StallWatch&) = delete;
  StallWatch& operator=(const StallWatch&) = delete;
  ~StallWatch();

  // How long some processor stood still between these two, nanoseconds of CLOCK_MONOTONIC, of which `to` is
  // now and `from` at most a minute ago. Nanoseconds.
  std::int64_t stalled(std::int64_t from, std::int64_t to) const;

  // True for a thread of this object, by its number.
  bool owns(const std::string& thread) const;

 private:
  struct Stall {
    std::int64_t from;
    std::int64_t to;
  };
  struct Sleeper {
    std::string number;
    std::atomic<std::int64_t> due{0};
    std::thread thread{};
  };
  void sleepOn(std::size_t processor, Sleeper& sleeper);
  void keep(const Stall& stall);

  mutable std::mutex mutex_;
  std::deque<Stall> stalls_;
  std::atomic<bool> ending_{false};
  std::deque<Sleeper> sleepers_;
};

}  // namespace vireon::soak
