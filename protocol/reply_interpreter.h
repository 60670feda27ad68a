#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "form/main_form.h"
#include "platform/beeper.h"
#include "protocol/instrument_state.h"

namespace vireon::protocol {

// What a reply item sets in motion in rooms above; an empty function is not called.
struct ReplyEffects {
  std::function<void(int channel, int setting)> dspVinf;  // show a channel's setting byte
  std::function<void(int mode)> setSubPan;                // lay out the logger panel for a mode
  std::function<void()> setTabPan;                        // show the panels of the present tab
  std::function<void()> saveTrd;                          // write the full trend plot to its file
};

// Moves the values of text replies into the main window's controls and the instrument state.
class ReplyInterpreter {
 public:
  ReplyInterpreter(form::MainForm& form, InstrumentState& state, platform::Beeper& beeper)
      : form_(form), state_(state), beeper_(beeper) {}

  ReplyEffects effects;

  // Interprets every item of rxBuf[1..rxLen]; items are parted by ",". Faults (kBounds) when rxLen is
  // beyond 600, after the items before that place.
  void dspRxd();

  // Interprets one item: characters 1 to 3 the key, 4 a separator, the value from 5 on. A fault ends the
  // item silently; what was changed before stays changed. Unknown keys change nothing.
  void dspSinf(std::string_view item);

  // Show the trend plot, or the logger's list, in place of the other; the plot begins empty, and the next
  // record goes to the list's first row.
  void enterTrendMode();
  void enterListMode();

 private:
  struct Key;
  static const Key kKeys[];

  // Each takes the item and the byte at characters 5 and 6, which is 0 for keys without one.
  void drm(std::string_view item, int byte);
  void dps(std::string_view item, int byte);
  void drp(std::string_view item, int byte);
  void sid(std::string_view item, int byte);
  void sim(std::string_view item, int byte);
  void drt(std::string_view item, int byte);
  void vda(std::string_view item, int byte);
  void vdb(std::string_view item, int byte);
  void vpa(std::string_view item, int byte);
  void vpb(std::string_view item, int byte);
  void hdv(std::string_view item, int byte);
  void hpo(std::string_view item, int byte);
  void tlv(std::string_view item, int byte);
  void trg(std::string_view item, int byte);
  void dfn(std::string_view item, int byte);
  void drg(std::string_view item, int byte);
  void sts(std::string_view item, int byte);

  void interpret(std::string_view item);
  void position(int channel, int byte);
  void trendParameters(std::string_view item);
  void trendPoint(std::string_view item);
  void loggerRecord(std::string_view item);
  void showTab(int tab);
  void loggingStatus(int byte);

  form::MainForm& form_;
  InstrumentState& state_;
  platform::Beeper& beeper_;
  std::string rxItem_;
};

// Value 1 in red, or value 0 in the system's button-text colour.
void showToggle(form::CheckBox& box, bool on);

// The record button: a pressed yellow "Stop" while the instrument records, else "Start". Under uiBusy.
void showRecording(form::MainForm& form, bool recording);

}  // namespace vireon::protocol
