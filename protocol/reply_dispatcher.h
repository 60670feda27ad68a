#pragma once

#include <functional>

#include "protocol/reply_interpreter.h"

namespace vireon::protocol {

// Where bulk frames go; an empty function drops the frame.
struct FrameSinks {
  std::function<void()> scopeDraw;  // "drs" and "mem": a waveform frame in rxBuf
  std::function<void()> dspLog;     // "lgd": logger records in rxBuf
};

// The one entry through which every received frame reaches the program.
class ReplyDispatcher {
 public:
  ReplyDispatcher(form::MainForm& form, InstrumentState& state, ReplyInterpreter& interpreter)
      : form_(form), state_(state), interpreter_(interpreter) {}

  FrameSinks sinks;

  // Takes the frame in rxBuf, its text at 1 to rxLen, whatever its bytes. A fault inside ends the frame
  // silently.
  void dspRcv();

 private:
  void route();
  void showFunctionText();

  form::MainForm& form_;
  InstrumentState& state_;
  ReplyInterpreter& interpreter_;
};

}  // namespace vireon::protocol
