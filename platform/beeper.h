#pragma once

namespace vireon::platform {

// The system's short signal sound.
class Beeper {
 public:
  Beeper() = default;
  Beeper(const Beeper&) = delete;
  Beeper& operator=(const Beeper&) = delete;
  virtual ~Beeper() = default;

  // Starts the sound and returns at once; a system without sound stays silent.
  virtual void beep() = 0;
};

}  // namespace vireon::platform
