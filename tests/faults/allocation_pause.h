#pragma once

namespace vireon::tests {

// Whether allocations are the tests' or the fakes' own at the moment; those never fail.
inline bool& allocationsPaused() {
  static thread_local bool paused = true;
  return paused;
}

template <bool kPaused>
class AllocationScope {
 public:
  AllocationScope() : before_(allocationsPaused()) { allocationsPaused() = kPaused; }
  AllocationScope(const AllocationScope&) = delete;
  AllocationScope& operator=(const AllocationScope&) = delete;
  ~AllocationScope() { allocationsPaused() = before_; }

 private:
  bool before_;
};

using AllocationPause = AllocationScope<true>;    // while a fake is at work
using AllocationResume = AllocationScope<false>;  // while the program is

}  // namespace vireon::tests
