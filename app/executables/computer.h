#pragma once

#include <string>
#include <utility>

#include "adapters/hid/hidapi_port.h"
#include "adapters/posix/posix_file_store.h"
#include "adapters/qt/modal_gate.h"
#include "adapters/qt/painting_files.h"
#include "adapters/qt/painting_hid.h"
#include "adapters/qt/painting_patience.h"
#include "adapters/qt/program_places.h"
#include "adapters/qt/serial_port.h"
#include "app/executables/session.h"

namespace vireon::app {

// The parts of this computer that a session needs, for as long as this object lives.
class Computer {
 public:
  // `programFolder` holds the program's files and the links that name its serial ports.
  explicit Computer(std::string programFolder) : folder_(std::move(programFolder)) {}

  SessionPorts ports() { return {hid_, serialPort_, files_}; }
  const std::string& folder() const { return folder_; }
  adapters::ModalGate& gate() { return gate_; }

 private:
  std::string folder_;
  adapters::ModalGate gate_;
  adapters::HidapiPort hidapi_;
  adapters::PaintingHid hid_{hidapi_, gate_};
  adapters::QtSerialPort serialPort_{
      gate_, [this](int com) { return adapters::comDevice(com, folder_, adapters::serialDevices()); },
      adapters::paintingPatience(gate_)};
  adapters::PosixFileStore disk_;
  adapters::PaintingFiles files_{disk_, gate_};
};

}  // namespace vireon::app
