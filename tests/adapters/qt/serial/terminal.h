#pragma once

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace vireon::tests {

// A pseudo-terminal and the far end of its line.
class Terminal {
 public:
  Terminal() : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    std::array<char, 128> name{};
    termios settings{};
    if (::grantpt(master_) != 0 || ::unlockpt(master_) != 0 ||
        ::ptsname_r(master_, name.data(), name.size()) != 0 || ::tcgetattr(master_, &settings) != 0) {
      throw std::runtime_error("no pseudo-terminal");
    }
    ::cfmakeraw(&settings);
    ::tcsetattr(master_, TCSANOW, &settings);
    path_ = name.data();
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal() { hangUp(); }

  const std::string& path() const { return path_; }

  // The adapter goes.
  void hangUp() {
    if (master_ >= 0) {
      ::close(std::exchange(master_, -1));
    }
  }

  // Puts bytes on the line; False when it does not take them.
  bool send(std::string_view bytes) const {
    return ::write(master_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  }

  // Takes what has come.
  std::string take() const {
    std::array<char, 4096> part{};
    const ssize_t count = ::read(master_, part.data(), part.size());
    return {part.data(), count > 0 ? static_cast<std::size_t>(count) : 0U};
  }

  speed_t speed() const {
    termios settings{};
    ::tcgetattr(master_, &settings);
    return ::cfgetospeed(&settings);
  }

 private:
  int master_;
  std::string path_;
};

}  // namespace vireon::tests
