#pragma once

#include <sys/fsuid.h>

namespace vireon::tests {

// File access of this thread as an account without rights has it, also where the tests run as root.
class Unprivileged {
 public:
  Unprivileged() : before_(::setfsuid(kNobody)) {}
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;
  ~Unprivileged() { ::setfsuid(static_cast<uid_t>(before_)); }

 private:
  static constexpr uid_t kNobody = 65534;
  int before_ = 0;
};

}  // namespace vireon::tests
