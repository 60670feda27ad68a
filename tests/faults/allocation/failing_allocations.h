#pragma once

#include <cstddef>

namespace vireon::tests {

// Which of the program's allocations fail; those of the tests and fakes neither fail nor count. The operators
// new of this process obey it.
struct AllocationPlan {
  std::size_t failAt = 0;  // counted from 1; 0 is none
  bool fromThenOn = false;

  std::size_t made = 0;    // so far
  std::size_t failed = 0;  // so far

  // Counts anew from here.
  void begin(std::size_t at, bool further) { *this = {at, further, 0, 0}; }
};

AllocationPlan& allocationPlan();

}  // namespace vireon::tests
