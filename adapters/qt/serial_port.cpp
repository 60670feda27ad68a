#include "adapters/qt/serial_port.h"

#include <algorithm>
#include <utility>

#include "adapters/posix/node_access.h"

namespace vireon::adapters {
namespace {

using platform::SerialOpenError;
using platform::SerialOpenResult;

QSerialPort::Parity parityOf(char letter) {
  return letter == 'E'   ? QSerialPort::EvenParity
         : letter == 'O' ? QSerialPort::OddParity
                         : QSerialPort::NoParity;
}

// Why the device did not open. The library reports a lock of another program as a missing permission.
SerialOpenResult refusal(QSerialPort::SerialPortError error, const QString& device) {
  SerialOpenResult result{SerialOpenError::kFailed, device.toStdString(), {}, false};
  if (error == QSerialPort::DeviceNotFoundError) {
    result.error = SerialOpenError::kNotFound;
  } else if (error == QSerialPort::PermissionError) {
    const NodeAccess access = nodeAccess(result.device);
    result.error = access.allowed ? SerialOpenError::kInUse : SerialOpenError::kNoPermission;
    result.group = access.group;
    result.memberAfterNextLogin = access.memberAfterNextLogin;
  }
  return result;
}

void raise(const std::function<void()>& event) {
  if (event) {
    event();
  }
}

}  // namespace

// The library is silent while its own signal is being handled, so events are raised after it.
QtSerialPort::QtSerialPort(const ModalGate& gate, std::function<QString(int com)> deviceOf,
                           NodePatience patience)
    : deviceOf_(std::move(deviceOf)),
      patience_(std::move(patience)),
      arrival_(gate, [this] { raise(onArrival); }),
      loss_(gate, [this] { raise(onLost); }) {}

QtSerialPort::~QtSerialPort() {
  QtSerialPort::close();
}

SerialOpenResult QtSerialPort::open(int com, const platform::SerialSettings& settings) {
  close();
  const QString device = deviceOf_(com);
  if (device.isEmpty()) {
    return {SerialOpenError::kNotFound, {}, {}, false};
  }
  auto port = std::make_unique<QSerialPort>(device);
  const bool accepted =
      port->setBaudRate(settings.baudRate) && port->setParity(parityOf(settings.parity)) &&
      port->setDataBits(static_cast<QSerialPort::DataBits>(settings.dataBits)) &&
      port->setStopBits(settings.stopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop) &&
      port->setFlowControl(QSerialPort::NoFlowControl);
  if (!accepted) {
    return {SerialOpenError::kFailed, device.toStdString(), {}, false};
  }
  const SerialOpenResult result = patience_.open(
      device.toStdString(),
      [&] {
        return port->open(QIODevice::ReadWrite)
                   ? SerialOpenResult{SerialOpenError::kNone, device.toStdString(), {}, false}
                   : refusal(port->error(), device);
      },
      [](const SerialOpenResult& outcome) { return outcome.error == SerialOpenError::kNoPermission; });
  if (result.error != SerialOpenError::kNone) {
    return result;
  }
  // Adapters that take their power from these lines need them; one without them refuses, which is no error.
  port->setDataTerminalReady(true);
  port->setRequestToSend(true);
  port->clear();
  port_ = std::move(port);
  connect(port_.get(), &QSerialPort::readyRead, this, [this] { arrival_.start(); });
  connect(port_.get(), &QSerialPort::errorOccurred, this, &QtSerialPort::failed);
  return result;
}

void QtSerialPort::close() {
  arrival_.stop();
  loss_.stop();
  if (port_ == nullptr) {
    return;
  }
  port_->disconnect();
  port_->close();
  // It may be the sender of the signal that led here.
  port_.release()->deleteLater();
}

bool QtSerialPort::write(std::span<const std::uint8_t> bytes) {
  if (port_ == nullptr) {
    return false;
  }
  const auto size = static_cast<qint64>(bytes.size());
  const bool taken = port_->write(reinterpret_cast<const char*>(bytes.data()), size) == size;
  if (taken && port_ != nullptr) {
    port_->flush();
  }
  return taken && port_ != nullptr;
}

std::size_t QtSerialPort::available() const {
  return port_ == nullptr ? 0 : static_cast<std::size_t>(std::max<qint64>(0, port_->bytesAvailable()));
}

std::vector<std::uint8_t> QtSerialPort::read(std::size_t limit) {
  std::vector<std::uint8_t> bytes(std::min(limit, available()));
  if (!bytes.empty()) {
    const qint64 count =
        port_->read(reinterpret_cast<char*>(bytes.data()), static_cast<qint64>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max<qint64>(0, count)));
  }
  return bytes;
}

// A device that is gone would report so without end.
void QtSerialPort::failed(QSerialPort::SerialPortError error) {
  if (error == QSerialPort::NoError || error == QSerialPort::TimeoutError ||
      error == QSerialPort::UnsupportedOperationError || port_ == nullptr) {
    return;
  }
  close();
  loss_.start();
}

}  // namespace vireon::adapters
