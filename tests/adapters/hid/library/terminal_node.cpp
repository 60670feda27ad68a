#include "tests/adapters/hid/library/terminal_node.h"

#include <fcntl.h>
#include <linux/hidraw.h>
#include <linux/ioctl.h>
#include <stdlib.h>
#include <sys/syscall.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <stdexcept>

namespace vireon::tests {
namespace {

std::vector<std::uint8_t>& answeredDescriptor() {
  static std::vector<std::uint8_t> descriptor;
  return descriptor;
}

}  // namespace

TerminalNode::TerminalNode(std::span<const std::uint8_t> descriptor)
    : far_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
  if (!far_.isOpen() || ::grantpt(far_.number()) != 0 || ::unlockpt(far_.number()) != 0) {
    throw std::runtime_error("no pseudo-terminal");
  }
  path_ = ::ptsname(far_.number());
  termios raw{};
  ::tcgetattr(far_.number(), &raw);
  ::cfmakeraw(&raw);
  ::tcsetattr(far_.number(), TCSANOW, &raw);
  answeredDescriptor().assign(descriptor.begin(), descriptor.end());
}

TerminalNode::~TerminalNode() {
  answeredDescriptor().clear();
}

void TerminalNode::send(std::span<const std::uint8_t> report) const {
  if (::write(far_.number(), report.data(), report.size()) != static_cast<ssize_t>(report.size())) {
    throw std::runtime_error("pseudo-terminal is full");
  }
}

std::vector<std::uint8_t> TerminalNode::take(std::size_t size) const {
  std::vector<std::uint8_t> bytes(size);
  const ssize_t count = ::read(far_.number(), bytes.data(), bytes.size());
  bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  return bytes;
}

void TerminalNode::unplug() {
  far_ = adapters::FileDescriptor();
}

void TerminalNode::stopAnswering() {
  answeredDescriptor().clear();
}

}  // namespace vireon::tests

// Stands before the C library's for this executable and the shared libraries that it loads.
extern "C" int ioctl(int file, unsigned long request, ...) noexcept {
  va_list arguments;
  va_start(arguments, request);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  const std::vector<std::uint8_t>& descriptor = vireon::tests::answeredDescriptor();
  if (!descriptor.empty() && request == HIDIOCGRDESCSIZE) {
    *static_cast<int*>(argument) = static_cast<int>(descriptor.size());
    return 0;
  }
  if (!descriptor.empty() && request == HIDIOCGRDESC) {
    auto* const answer = static_cast<hidraw_report_descriptor*>(argument);
    if (answer->size > descriptor.size()) {
      errno = EINVAL;
      return -1;
    }
    std::copy_n(descriptor.begin(), answer->size, answer->value);
    return 0;
  }
  return static_cast<int>(::syscall(SYS_ioctl, file, request, argument));
}
