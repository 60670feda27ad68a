#pragma once

#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

#include "tests/soak/act_log.h"

namespace vireon::soak {

// Ends the process, with the last acts and the stack of the thread that made this object, when that thread
// shows no sign of life for kPatience; the time that it waits for the disk does not count.
class HangWatch {
 public:
  static constexpr int kPatience = 15;  // seconds

  explicit HangWatch(const ActLog& log);
  HangWatch(const HangWatch&) = delete;
  HangWatch& operator=(const HangWatch&) = delete;
  ~HangWatch();

  void alive() { ++beats_; }

 private:
  void watch();

  const ActLog& log_;
  pthread_t watched_ = ::pthread_self();
  std::string task_ = "/proc/self/task/" + std::to_string(::gettid());
  std::atomic<std::uint64_t> beats_{0};
  std::mutex mutex_;
  std::condition_variable changed_;
  bool ending_ = false;
  std::thread thread_;
};

}  // namespace vireon::soak
