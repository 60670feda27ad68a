#pragma once

#include "platform/beeper.h"

namespace vireon::tests {

// Counts the signal sounds.
class FakeBeeper final : public platform::Beeper {
 public:
  void beep() override { ++beeps; }

  int beeps = 0;
};

}  // namespace vireon::tests
