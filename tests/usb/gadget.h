#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vireon::tests {

struct UsbIds {
  std::uint16_t vendor = 0x10C4;
  std::uint16_t product = 0xE001;
};

// A HID device that the kernel plays on one of its dummy controllers: reports of one length in both
// directions, without identifiers. Failures of the system are thrown as std::runtime_error or
// std::filesystem_error.
class Gadget {
 public:
  // Controllers are numbered from 0; each carries one gadget at a time. The gadget starts unplugged.
  // `reportLength` is 1 to 64.
  explicit Gadget(UsbIds ids, int controller = 0, std::uint8_t reportLength = 64);
  Gadget(const Gadget&) = delete;
  Gadget& operator=(const Gadget&) = delete;
  // Unplugs it and takes it apart.
  ~Gadget();

  // Binds it and waits until the host has its node, or unbinds it and waits until the node has gone.
  Gadget& plug();
  void unplug();

  // The gadget's end, e.g. "/dev/hidg0"; there while it is plugged in.
  std::string deviceNode() const;

  // The host's end, e.g. "/dev/hidraw0", while the host has one.
  std::optional<std::string> hostNode() const;
  bool waitForHostNode() const;
  bool waitForNoHostNode() const;

  // The file that holds the controller's name while the gadget is plugged in.
  std::filesystem::path udcFile() const { return folder_ / "UDC"; }

 private:
  void bind(const std::string& controller) const;

  std::filesystem::path folder_;
  int controller_;
};

// What this process has open under /dev/hidraw, nodes that are gone included.
std::vector<std::string> openHostNodes();

}  // namespace vireon::tests
