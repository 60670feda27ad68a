#pragma once

#include <functional>
#include <optional>
#include <string>

#include "adapters/posix/file_descriptor.h"
#include "simulator/serve/served_link.h"
#include "simulator/serve/udc_file.h"
#include "simulator/usb_endpoint.h"

namespace vireon::simulator {

// The instrument's USB side at a HID gadget's node, whose reports have 64 bytes in both directions. While
// the host is detached, reports under way are lost and the node is tried again every 50 ms. Keeps
// references to the endpoint and the clock, which must outlive it.
class GadgetDevice : public ServedLink {
 public:
  // Opens the node for reading and writing without waiting; not open when that is impossible now.
  using OpenNode = std::function<adapters::FileDescriptor()>;

  static constexpr std::chrono::milliseconds kRetryAfter{50};
  // An input report that the host did not fetch for so long was left behind by a host that is gone.
  static constexpr std::chrono::seconds kFetchTime{1};

  // `udc` is what unplugging needs. Throws std::runtime_error when the node cannot be opened.
  GadgetDevice(UsbEndpoint& endpoint, Clock& clock, std::string path, OpenNode openNode,
               std::optional<UdcFile> udc);

  std::string path() const override { return path_; }
  void serve() override;
  Wake wake() const override;
  void plug() override;
  // Throws UsageError without a UDC file.
  void unplug() override;
  bool plugged() const override { return endpoint_.plugged(); }
  void setFaults(const Faults& faults) override;

 private:
  void takeReports();
  void giveReports();
  bool fetchable() const;
  void lose();
  void detach();

  UsbEndpoint& endpoint_;
  Clock& clock_;
  std::string path_;
  OpenNode openNode_;
  std::optional<UdcFile> udc_;
  adapters::FileDescriptor node_;
  std::chrono::nanoseconds retryAt_{0};
};

// Opens a HID gadget's node.
adapters::FileDescriptor openGadgetNode(const std::string& path);

}  // namespace vireon::simulator
