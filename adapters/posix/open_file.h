#pragma once

#include <cerrno>
#include <string>
#include <utility>

#include "adapters/posix/posix_calls.h"
#include "adapters/posix/repeated.h"

namespace vireon::adapters {

// Owns one open file, or none.
class OpenFile {
 public:
  OpenFile(const PosixCalls& calls, const std::string& path, int flags, mode_t mode = 0)
      : calls_(calls),
        number_(repeated([&] { return calls.open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode); })) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { close(); }

  bool isOpen() const { return number_ >= 0; }
  int number() const { return number_; }

  // 0 or errno. The file is closed either way; a signal meanwhile is no error.
  int close() {
    if (!isOpen()) return 0;
    return calls_.close(std::exchange(number_, -1)) == 0 || errno == EINTR ? 0 : errno;
  }

 private:
  const PosixCalls& calls_;
  int number_ = -1;
};

}  // namespace vireon::adapters
