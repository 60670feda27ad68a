#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "adapters/posix/file_descriptor.h"

namespace vireon::tests {

// A pseudo-terminal that answers as a HID node: a real character device with real waiting, signals and
// hang-up. This executable's own ioctl() gives it a report descriptor. One of these lives at a time.
class TerminalNode {
 public:
  explicit TerminalNode(std::span<const std::uint8_t> descriptor);
  TerminalNode(const TerminalNode&) = delete;
  TerminalNode& operator=(const TerminalNode&) = delete;
  ~TerminalNode();

  const std::string& path() const { return path_; }

  void send(std::span<const std::uint8_t> report) const;
  std::vector<std::uint8_t> take(std::size_t size) const;  // what the host wrote
  void unplug();
  void stopAnswering();  // from now on the node is a HID node no more

 private:
  adapters::FileDescriptor far_;
  std::string path_;
};

}  // namespace vireon::tests
