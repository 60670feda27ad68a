#pragma once

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "adapters/posix/file_descriptor.h"

namespace vireon::simulator::tests {

// A gadget's node without a gadget: the device's end keeps reports apart, as the node does, and the test
// has the host's end. At most a few reports fit in until the host fetches them.
class GadgetNode {
 public:
  adapters::FileDescriptor open() {
    ++openings;
    if (!present) return {};
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends.data()) != 0) return {};
    const int least = 1;
    ::setsockopt(ends[0], SOL_SOCKET, SO_SNDBUF, &least, sizeof least);
    host_ = adapters::FileDescriptor(ends[1]);
    return adapters::FileDescriptor(ends[0]);
  }

  // One report of 64 bytes, filled up with zeros. False when the device does not take it now.
  bool put(std::string_view bytes) const {
    std::string report(bytes);
    report.resize(64);
    return ::send(host_.number(), report.data(), report.size(), MSG_NOSIGNAL) == 64;
  }
  bool putShort(std::string_view bytes) const {
    return ::send(host_.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL) > 0;
  }

  // The next report that the device sent, if there is one.
  std::optional<std::string> fetch() const {
    std::array<char, 128> bytes{};
    const ssize_t count = ::recv(host_.number(), bytes.data(), bytes.size(), 0);
    if (count <= 0) return std::nullopt;
    return std::string(bytes.data(), static_cast<std::size_t>(count));
  }

  // The host goes: what the device does with the node fails from now on.
  void detach() { host_.close(); }

  bool present = true;
  int openings = 0;

 private:
  adapters::FileDescriptor host_;
};

}  // namespace vireon::simulator::tests
