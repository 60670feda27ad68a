#pragma once

#include <utility>

namespace vireon::protocol {

// Raises a flag for a scope and gives it its former value back.
class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) : flag_(flag), former_(std::exchange(flag, true)) {}
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;
  ~ScopedFlag() { flag_ = former_; }

 private:
  bool& flag_;
  bool former_;
};

}  // namespace vireon::protocol
