#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace vireon::platform {

struct SerialSettings {
  int baudRate = 9600;
  char parity = 'N';  // N none, E even, O odd
  int dataBits = 8;   // 5 to 8
  int stopBits = 1;   // 1 or 2
};

enum class SerialOpenError {
  kNone,
  kNotFound,      // there is no port of that number, or its device vanished
  kNoPermission,  // the device is there but this account may not read and write it
  kInUse,         // another program has it
  kFailed,        // any other reason, e.g. a rate that the device cannot do
};

struct SerialOpenResult {
  SerialOpenError error = SerialOpenError::kNone;
  std::string device;  // the node that was tried, e.g. "/dev/ttyUSB0"; empty when there is none
  std::string group;   // owning group of that node, where it refused this account
  bool memberAfterNextLogin = false;  // the account is in that group, but not yet in this session
};

// One serial port, without handshake. It is used from the thread whose message pump delivers its events, and
// its events come from the pump alone, never from inside one of its functions.
class SerialPort {
 public:
  SerialPort() = default;
  SerialPort(const SerialPort&) = delete;
  SerialPort& operator=(const SerialPort&) = delete;
  virtual ~SerialPort() = default;

  // Opens port number `com`, from 1 on; an open port is closed first. Bytes that the driver still held from
  // before are dropped. Lines and settings that a device does not have are no error.
  virtual SerialOpenResult open(int com, const SerialSettings& settings) = 0;

  virtual void close() = 0;
  virtual bool isOpen() const = 0;

  // Queues all bytes for sending and returns at once. False when the port is closed or refuses them.
  virtual bool write(std::span<const std::uint8_t> bytes) = 0;

  // Bytes that arrived and were not read.
  virtual std::size_t available() const = 0;

  // Takes up to `limit` of them, without waiting.
  virtual std::vector<std::uint8_t> read(std::size_t limit) = 0;

  // Bytes arrived since the last call; at least one call follows every arrival.
  std::function<void()> onArrival;

  // The device is gone or broken; the port has been closed. Once for each opening.
  std::function<void()> onLost;
};

}  // namespace vireon::platform
