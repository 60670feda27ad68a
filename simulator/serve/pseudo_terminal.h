#pragma once

#include <filesystem>
#include <optional>

#include "adapters/posix/file_descriptor.h"
#include "simulator/serial_endpoint.h"
#include "simulator/serve/port_link.h"
#include "simulator/serve/served_link.h"

namespace vireon::simulator {

// The instrument's serial side at a pseudo-terminal, which another process opens by a symbolic link. What
// the instrument sends while nobody has it open is lost. Unplugging hangs the terminal up and takes the
// link away. Keeps a reference to the endpoint, which must outlive it.
class PseudoTerminal : public ServedLink {
 public:
  PseudoTerminal(SerialEndpoint& endpoint, std::filesystem::path link);

  std::string path() const override { return path_.string(); }
  void serve() override;
  Wake wake() const override;
  void plug() override;
  void unplug() override;
  bool plugged() const override { return endpoint_.plugged(); }
  void setFaults(const Faults& faults) override { endpoint_.setFaults(faults); }

 private:
  void open();
  void close();
  bool takeHangUp();
  void takeFromHost();
  void giveToHost();
  void endExclusiveUse();
  int hostBaud() const;
  bool hostGone() const;

  SerialEndpoint& endpoint_;
  std::filesystem::path path_;
  std::filesystem::path slave_;
  adapters::FileDescriptor master_;
  adapters::FileDescriptor changes_;
  std::optional<PortLink> link_;
};

}  // namespace vireon::simulator
