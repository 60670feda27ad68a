#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/serial_port.h"

namespace vireon::link {

// The communications control: one serial port under the property and event names of its kind.
class CommControl {
 public:
  static constexpr int kEventReceive = 2;     // CommEvent: bytes arrived
  static constexpr int kInputModeBinary = 1;  // InputMode: Input is bytes, the only mode there is
  static constexpr int kMostPorts = 16;

  explicit CommControl(platform::SerialPort& port);
  CommControl(const CommControl&) = delete;
  CommControl& operator=(const CommControl&) = delete;
  ~CommControl();

  // Port number, 1 to kMostPorts. Faults (kPropertyValue) on another one, and while the port is open.
  int CommPort() const { return commPort_; }
  void CommPort(int number);

  // Baud rate, parity, data bits, stop bits: "9600,N,8,1". Faults (kPropertyValue) on any other form.
  const std::string& Settings() const { return settings_; }
  void Settings(std::string_view text);

  // Opening faults (kPropertyValue) where that fails; openResult() then tells why.
  bool PortOpen() const { return port_.isOpen(); }
  void PortOpen(bool open);
  const platform::SerialOpenResult& openResult() const { return openResult_; }

  // Bytes that Input takes at once; 0 takes all. Faults (kPropertyValue) below 0.
  int InputLen() const { return inputLen_; }
  void InputLen(int bytes);

  int InputMode() const { return inputMode_; }
  // Faults (kPropertyValue) on anything but kInputModeBinary.
  void InputMode(int mode);

  // Bytes that wait to be taken; 0 while the port is closed.
  std::size_t InBufferCount() const;
  std::vector<std::uint8_t> Input();

  // Sends; False when that cannot be done.
  bool Output(std::span<const std::uint8_t> bytes);

  // What the last OnComm was about.
  int CommEvent() const { return commEvent_; }
  std::function<void()> OnComm;

  // The port's device went; the port is closed.
  std::function<void()> onLost;

 private:
  platform::SerialPort& port_;
  int commPort_ = 1;
  std::string settings_ = "9600,N,8,1";
  platform::SerialSettings parsed_;
  platform::SerialOpenResult openResult_;
  int inputLen_ = 0;
  int inputMode_ = kInputModeBinary;
  int commEvent_ = 0;
};

}  // namespace vireon::link
