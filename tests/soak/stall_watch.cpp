#include "tests/soak/stall_watch.h"

#include <pthread.h>
#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <latch>
#include <vector>

namespace vireon::soak {
namespace {

constexpr std::chrono::milliseconds kSleep{2};
constexpr std::int64_t kLate = 6'000'000;  // nanoseconds; one that wakes waits for less on a busy processor
constexpr std::int64_t kKept = 60'000'000'000;

std::int64_t now() {
  return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

cpu_set_t processors() {
  cpu_set_t set;
  CPU_ZERO(&set);
  ::sched_getaffinity(0, sizeof set, &set);
  return set;
}

}  // namespace

StallWatch::StallWatch() {
  const cpu_set_t all = processors();
  std::latch begun(CPU_COUNT(&all));
  for (std::size_t processor = 0; processor < CPU_SETSIZE; ++processor) {
    if (CPU_ISSET(processor, &all)) {
      Sleeper& sleeper = sleepers_.emplace_back();
      sleeper.thread = std::thread([this, processor, &sleeper, &begun] {
        sleeper.number = std::to_string(::gettid());
        begun.count_down();
        sleepOn(processor, sleeper);
      });
    }
  }
  begun.wait();
}

StallWatch::~StallWatch() {
  ending_ = true;
  for (Sleeper& sleeper : sleepers_) {
    sleeper.thread.join();
  }
}

void StallWatch::sleepOn(std::size_t processor, Sleeper& sleeper) {
  cpu_set_t only;
  CPU_ZERO(&only);
  CPU_SET(processor, &only);
  ::pthread_setaffinity_np(::pthread_self(), sizeof only, &only);
  while (!ending_) {
    sleeper.due = now() + std::chrono::nanoseconds(kSleep).count();
    std::this_thread::sleep_for(kSleep);
    if (const std::int64_t woke = now(); woke - sleeper.due > kLate) {
      keep({sleeper.due, woke});
    }
  }
}

void StallWatch::keep(const Stall& stall) {
  const std::lock_guard lock(mutex_);
  stalls_.push_back(stall);
  while (stalls_.front().to < stall.to - kKept) {
    stalls_.pop_front();
  }
}

std::int64_t StallWatch::stalled(std::int64_t from, std::int64_t to) const {
  std::vector<Stall> within;
  for (const Sleeper& sleeper : sleepers_) {  // one may be late still
    if (to - sleeper.due > kLate) {
      within.push_back({sleeper.due, to});
    }
  }
  {
    const std::lock_guard lock(mutex_);
    within.insert(within.end(), stalls_.begin(), stalls_.end());
  }
  std::sort(within.begin(), within.end(),
            [](const Stall& one, const Stall& other) { return one.from < other.from; });
  std::int64_t sum = 0;
  for (const Stall& stall : within) {  // those of several processors overlap
    const std::int64_t begin = std::max(from, stall.from);
    const std::int64_t end = std::min(to, stall.to);
    if (end > begin) {
      sum += end - begin;
      from = end;
    }
  }
  return sum;
}

bool StallWatch::owns(const std::string& thread) const {
  return std::any_of(sleepers_.begin(), sleepers_.end(),
                     [&](const Sleeper& sleeper) { return sleeper.number == thread; });
}

}  // namespace vireon::soak
