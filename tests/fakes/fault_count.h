#pragma once

#include <atomic>
#include <cstddef>

namespace vireon::tests {

// The faults that this process has injected so far.
inline std::atomic<std::size_t>& faultsInjected() {
  static std::atomic<std::size_t> count{0};
  return count;
}

// A test, or a fake at one of its knobs, has let one thing fail.
inline void countFault() {
  ++faultsInjected();
}

}  // namespace vireon::tests
