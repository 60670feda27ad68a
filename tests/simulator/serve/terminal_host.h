#pragma once

#include <fcntl.h>
#include <poll.h>
#include <termios.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

#include "adapters/posix/file_descriptor.h"

namespace vireon::simulator::tests {

// A command or an answer as it stands on the wire.
inline std::string framed(std::string_view text) {
  return "\x02" + std::string(text) + "\x03";
}

// A host at a serial port, by the system's terminal calls alone. Every wait ends after kLimit.
class TerminalHost {
 public:
  static constexpr std::chrono::seconds kLimit{30};

  explicit TerminalHost(const std::filesystem::path& port, speed_t speed = B9600)
      : port_(::open(port.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    setSpeed(speed);
  }

  bool isOpen() const { return port_.isOpen(); }
  int descriptor() const { return port_.number(); }
  void close() { port_.close(); }

  void setSpeed(speed_t speed) const {
    termios settings{};
    ::tcgetattr(port_.number(), &settings);
    ::cfmakeraw(&settings);
    ::cfsetspeed(&settings, speed);
    ::tcsetattr(port_.number(), TCSANOW, &settings);
  }

  bool put(std::string_view bytes) const {
    return ::write(port_.number(), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  }

  // The next bytes, whatever their number; none when the terminal was hung up or nothing comes.
  std::string piece() {
    pollfd state{port_.number(), POLLIN, 0};
    const auto limit = std::chrono::duration_cast<std::chrono::milliseconds>(kLimit);
    std::array<char, 4096> bytes{};
    if (::poll(&state, 1, static_cast<int>(limit.count())) <= 0) return {};
    const ssize_t count = ::read(port_.number(), bytes.data(), bytes.size());
    hungUp = count == 0 || (count < 0 && errno != EAGAIN);
    return count > 0 ? std::string(bytes.data(), static_cast<std::size_t>(count)) : std::string();
  }

  // So many bytes, or fewer when no more come.
  std::string listen(std::size_t length) {
    std::string text;
    pieces = 0;
    while (text.size() < length) {
      const std::string more = piece();
      if (more.empty()) break;
      ++pieces;
      text += more;
    }
    return text;
  }

  std::string exchange(std::string_view command, std::size_t answerLength) {
    return put(framed(command)) ? listen(answerLength) : std::string();
  }

  int pieces = 0;  // of the last answer
  bool hungUp = false;

 private:
  adapters::FileDescriptor port_;
};

}  // namespace vireon::simulator::tests
