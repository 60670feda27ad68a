#pragma once

#include <array>
#include <functional>
#include <string>

#include "form/main_form.h"
#include "protocol/instrument_state.h"
#include "protocol/reply_interpreter.h"

namespace vireon::scope {

// Bytes of a waveform frame in rxBuf, STX at 0.
struct WaveformFrame {
  static constexpr int kTriggerPoint = 21;  // two hex digits, the "tlv" value
  static constexpr int kFlags = 27;         // bit value 2: channel B shows the stored reference trace
  static constexpr int kSamplesA = 29;
  static constexpr int kSamplesB = 154;
  static constexpr int kSamples = 125;  // of each channel
  static constexpr int kReading = 279;  // ten characters
  static constexpr int kSize = 289;
  static constexpr int kGap = 240;  // channel A only: no segment ends here
};

// Decodes waveform frames and draws them on picScope.
class WaveformDisplay {
 public:
  WaveformDisplay(form::MainForm& form, protocol::InstrumentState& state,
                  protocol::ReplyInterpreter& interpreter)
      : form_(form), state_(state), interpreter_(interpreter) {}

  // Arms the saving of the next frame that scopeDraw draws.
  bool wfmSave = false;

  // Writes bytes 0 to 288 of rxBuf to the waveform file; called once for each armed save.
  std::function<void()> writeWaveform;

  // Draws the frame in rxBuf, then saves it when that was armed. A fault ends it with the save still armed.
  void scopeDraw();

  // Draws the frame in rxBuf and hands each setting that changed since the former frame to the interpreter.
  // Faults (kConversion) on a trigger point without hex digits, before anything is drawn.
  void dspWfm();

 private:
  void placeTriggerMarker();
  void followSettings();
  void drawTraces();

  form::MainForm& form_;
  protocol::InstrumentState& state_;
  protocol::ReplyInterpreter& interpreter_;
  std::array<std::string, 11> wfmHdr_;  // 1 to 9 the fields in frame order, 10 the flag byte
};

}  // namespace vireon::scope
