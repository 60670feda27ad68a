#pragma once

#include <sys/fsuid.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace vireon::tests {

// File access of this thread as an account without rights has it, also where the tests run as root. The real
// user goes along, because access() asks for that one; the system call, unlike setresuid(), leaves the other
// threads alone.
class Unprivileged {
 public:
  explicit Unprivileged(uid_t account = kNobody) : realBefore_(::getuid()) {
    ::syscall(SYS_setresuid, account, kSame, kSame);
    before_ = ::setfsuid(account);
  }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;
  ~Unprivileged() {
    // In this order: the other call would set the file system's user as well, without its capabilities.
    ::setfsuid(static_cast<uid_t>(before_));
    ::syscall(SYS_setresuid, realBefore_, kSame, kSame);
  }

 private:
  static constexpr uid_t kNobody = 65534;
  static constexpr uid_t kSame = static_cast<uid_t>(-1);
  uid_t realBefore_;
  int before_ = 0;
};

}  // namespace vireon::tests
