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

  std::string baudRate;     // "1200", "2400", "4800" or "9600"
  int comWait = 0;          // milliseconds for a serial answer; 800 where it is not above 0
  bool linkBusy = false;    // a serial exchange waits for its answer
  bool rxTimeout = false;   // no answer came in time, or the port is not open
  bool rxDone = false;      // a complete answer was taken in
  bool rxEnq = false;       // the answer was a refusal
  bool portSearch = false;  // the search over ports and rates runs; time-outs are no failure
  bool cmdPending = false;  // pendingCmd is to be sent when the exchange ends
  std::string pendingCmd;

  bool waitEnded = false;  // the user ended the running wait or search; cleared by the next operation

  bool onUsb() const { return comPort == "0"; }
};

// Milliseconds that an answer may take at a baud rate; 0 for a rate that the instrument does not have.
int answerTimeOut(const std::string& baudRate);

}  // namespace vireon::link
