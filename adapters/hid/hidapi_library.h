#pragma once

#include <hidapi.h>

#include <memory>

namespace vireon::adapters {

// The library, initialised for as long as this object lives. Shared by the port and its open handles, so
// that a handle may outlive the port.
class HidapiLibrary {
 public:
  HidapiLibrary() : ready_(hid_init() == 0) {}
  HidapiLibrary(const HidapiLibrary&) = delete;
  HidapiLibrary& operator=(const HidapiLibrary&) = delete;
  ~HidapiLibrary() {
    if (ready_) hid_exit();
  }

  bool ready() const { return ready_; }

 private:
  bool ready_ = false;
};

struct DeviceCloser {
  void operator()(hid_device* device) const { hid_close(device); }
};
using DevicePtr = std::unique_ptr<hid_device, DeviceCloser>;

struct EnumerationFreer {
  void operator()(hid_device_info* first) const { hid_free_enumeration(first); }
};
using EnumerationPtr = std::unique_ptr<hid_device_info, EnumerationFreer>;

}  // namespace vireon::adapters
