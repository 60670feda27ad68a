#pragma once

#include <filesystem>
#include <string>

namespace vireon::simulator {

// The file by which a gadget is bound to a USB device controller: it holds the controller's name, or
// nothing while the gadget is not on the bus. Failures are thrown as std::runtime_error.
class UdcFile {
 public:
  // Takes over the controller's name; the gadget must be bound.
  explicit UdcFile(std::filesystem::path path);

  void attach() const { write(name_); }
  void detach() const { write({}); }

 private:
  void write(const std::string& name) const;

  std::filesystem::path path_;
  std::string name_;
};

}  // namespace vireon::simulator
