#pragma once

#include <gtest/gtest.h>

#include "form/main_form.h"
#include "meter/panel_layouts.h"
#include "protocol/reply_dispatcher.h"
#include "scope/scale_tables.h"
#include "scope/waveform_display.h"
#include "tests/fakes/fake_beeper.h"
#include "tests/scope/waveform_frame.h"

namespace vireon::tests {

// The way of a frame through the core as the program ties it: dispatcher, interpreter, picture, panels.
class ScopeParts {
 public:
  ScopeParts() {
    interpreter.effects.dspVinf = [this](int channel, int setting) {
      scope::dspVinf(form, state, channel, setting);
    };
    interpreter.effects.setSubPan = [this](int mode) { meter::setSubPan(form, mode); };
    interpreter.effects.setTabPan = [this] { meter::setTabPan(form); };
    dispatcher.sinks.scopeDraw = [this] { waveform.scopeDraw(); };
    scope::initLbl(form, state);
    meter::setTabPan(form);
    for (form::PictureBox* panel : {&form.panTrd, &form.picSet, &form.picSwin[0], &form.picSwin[1]}) {
      panel->setVisible(false);
    }
  }
  ScopeParts(const ScopeParts&) = delete;
  ScopeParts& operator=(const ScopeParts&) = delete;

  // One frame, taken in as a link hands it over.
  void take(const FrameBytes& frame) {
    receiveFrame(state, frame);
    dispatcher.dspRcv();
  }

  form::MainForm form;
  protocol::InstrumentState state;
  FakeBeeper beeper;
  protocol::ReplyInterpreter interpreter{form, state, beeper};
  protocol::ReplyDispatcher dispatcher{form, state, interpreter};
  scope::WaveformDisplay waveform{form, state, interpreter};
};

class ScopeRig : public testing::Test, protected ScopeParts {};

}  // namespace vireon::tests
