#pragma once

#include <QObject>
#include <QSerialPort>
#include <QString>
#include <functional>
#include <memory>

#include "adapters/posix/node_patience.h"
#include "adapters/qt/patient_timer.h"
#include "platform/serial_port.h"

namespace vireon::adapters {

// A serial device of the system.
class QtSerialPort : public QObject, public platform::SerialPort {
  Q_OBJECT

 public:
  // `deviceOf` names the device of a port number, empty when there is none. `gate` outlives the port, whose
  // events wait while the windows only paint.
  QtSerialPort(const ModalGate& gate, std::function<QString(int com)> deviceOf, NodePatience patience = {});
  Q_DISABLE_COPY_MOVE(QtSerialPort)
  ~QtSerialPort() override;

  platform::SerialOpenResult open(int com, const platform::SerialSettings& settings) override;
  void close() override;
  bool isOpen() const override { return port_ != nullptr; }
  bool write(std::span<const std::uint8_t> bytes) override;
  std::size_t available() const override;
  std::vector<std::uint8_t> read(std::size_t limit) override;

 private:
  void failed(QSerialPort::SerialPortError error);

  std::function<QString(int com)> deviceOf_;
  NodePatience patience_;
  std::unique_ptr<QSerialPort> port_;
  PatientTimer arrival_;  // raises onArrival
  PatientTimer loss_;     // raises onLost
};

}  // namespace vireon::adapters
