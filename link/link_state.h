#pragma once

#include <cstdint>
#include <string>

namespace vireon::link {

// The link variables that the handlers share.
struct LinkState {
  std::string comPort = "0";          // "0" is USB, "1" to "4" a serial port
  std::int16_t usbProductId = -8191;  // E001 to E004 hexadecimal as signed 16 bits
  bool usbOpen = false;               // both handles of the matched device are open
  int usbResult = 0;                  // last report read or written: 1 is success
  bool usbPrefix = false;             // one-shot: the next command carries 254, 253 after its STX
  bool linkBusy = false;              // a serial exchange waits for its answer
  bool cmdPending = false;            // pendingCmd is to be sent when that exchange ends
  std::string pendingCmd;

  bool onUsb() const { return comPort == "0"; }
};

}  // namespace vireon::link
