#include <gtest/gtest.h>

#include "link/connection_control.h"
#include "scope/scope_controls.h"
#include "tests/fakes/fake_message_boxes.h"
#include "tests/fakes/fake_raw_hid.h"
#include "tests/fakes/fake_serial.h"
#include "tests/scope/sane_state.h"
#include "tests/scope/scope_rig.h"

namespace vireon::scope {
namespace {

using Lines = std::vector<form::Line>;

// A window whose scope controls would send over a link.
class Window : public tests::ScopeParts {
 public:
  Window() { controls_.connectEvents(); }

  std::size_t sent() const { return hid_.written.size() + messages_.count(); }

 private:
  tests::FakeRawHid hid_;
  tests::FakeMessageBoxes messages_;
  link::LinkState link_;
  tests::FakeSerial serial_;
  link::ConnectionControl connection_{
      form, state, link_, {hid_, messages_, beeper, serial_.port, serial_.pump, serial_.view}};
  ScopeControls controls_{form, state, connection_};
};

// All that a frame shows on the scope tab.
std::vector<std::string> shown(const form::MainForm& form) {
  std::vector<std::string> shown;
  for (const form::Label* label : {&form.posDV[0], &form.posDV[1], &form.posT, &form.markT, &form.lblHd,
                                   &form.lblDmm, &form.lblVd[0], &form.lblVd[1]}) {
    shown.push_back(label->name() + (label->visible() ? "+" : "-") + label->caption() + " " +
                    std::to_string(label->left()) + " " + std::to_string(label->top()));
  }
  for (const form::Label& label : form.lblSinf) {
    shown.push_back(label.name() + (label.visible() ? "+" : "-") + label.caption());
  }
  for (const form::CheckBox* box : {&form.chkVac[0], &form.chkVac[1], &form.chkVat[0], &form.chkVat[1],
                                    &form.chkVof[0], &form.chkVof[1], &form.chkHat, &form.chkAt}) {
    shown.push_back(box->name() + box->caption() + std::to_string(box->value()) +
                    std::to_string(box->foreColor().value));
  }
  for (const form::Slider* slider : {&form.sldPosV[0], &form.sldPosV[1], &form.sldPosH, &form.trgLvl}) {
    shown.push_back(slider->name() + std::to_string(slider->value()));
  }
  for (const int number :
       {form.cmbFun.listIndex(), form.optFun.selected(), form.optTS.selected(), form.SSTab1.tab()}) {
    shown.push_back(std::to_string(number));
  }
  return shown;
}

class DamagedWaveform : public testing::Test {
 protected:
  // Feeds a damaged frame to a window that has shown good ones, then good ones again.
  void damage(const tests::FrameBytes& frame, int length) {
    Window window;
    window.take(good_);
    window.take(good_);
    const std::vector<std::string> before = shown(window.form);

    tests::receiveFrame(window.state, frame);
    window.state.rxLen = length;
    window.dispatcher.dspRcv();
    ASSERT_TRUE(tests::isSane(window.form, window.state));
    ASSERT_EQ(window.sent(), 0U);

    window.take(good_);
    ASSERT_TRUE(tests::isSane(window.form, window.state));
    ASSERT_EQ(tests::linesOf(window.form.picScope), expected_);
    ASSERT_EQ(window.form.lblDmm.caption(), fields_.reading);
    // The trigger marker and the level marker follow the settings of the frame before.
    window.take(good_);
    window.interpreter.dspSinf("tlv:" + fields_.tlv);
    ASSERT_EQ(shown(window.form), before);
    ASSERT_EQ(window.sent(), 0U);
  }

  tests::WaveformFields fields_;
  tests::FrameBytes good_ = fields_.bytes();
  Lines expected_ = tests::bothTraces(fields_.a, fields_.b);
};

TEST_F(DamagedWaveform, AnySingleBitFlippedLeavesTheWindowSaneAndTheNextFrameDrawn) {
  for (std::size_t index = 0; index < good_.size(); ++index) {
    for (unsigned bit = 0; bit < 8; ++bit) {
      SCOPED_TRACE("byte " + std::to_string(index) + " bit " + std::to_string(bit));
      tests::FrameBytes frame = good_;
      frame[index] ^= static_cast<std::uint8_t>(1U << bit);
      ASSERT_NO_FATAL_FAILURE(damage(frame, 288));
    }
  }
}

TEST_F(DamagedWaveform, AFrameCutAtAnyLengthShowsWhatTheBufferStillHolds) {
  for (int length = 0; length <= 288; ++length) {
    SCOPED_TRACE("length " + std::to_string(length));
    ASSERT_NO_FATAL_FAILURE(damage(good_, length));
  }
}

TEST_F(DamagedWaveform, AFrameCutAtAnyLengthByAnEndByteLeavesTheNextFrameDrawn) {
  for (int length = 0; length <= 288; ++length) {
    for (const int rest : {0, 0xFF, 0x30}) {
      SCOPED_TRACE("length " + std::to_string(length));
      tests::FrameBytes frame = good_;
      const auto end = frame.begin() + 1 + length;
      std::fill(end, frame.end(), static_cast<std::uint8_t>(rest));
      if (end != frame.end()) {
        *end = 3;
      }
      ASSERT_NO_FATAL_FAILURE(damage(frame, length));
    }
  }
}

TEST_F(DamagedWaveform, AFrameOfOneByteValueThroughoutLeavesTheNextFrameDrawn) {
  for (int value = 0; value < 256; ++value) {
    SCOPED_TRACE("value " + std::to_string(value));
    tests::FrameBytes frame{};
    frame.fill(static_cast<std::uint8_t>(value));
    std::copy_n(good_.begin(), 4, frame.begin());
    ASSERT_NO_FATAL_FAILURE(damage(frame, 288));
  }
}

}  // namespace
}  // namespace vireon::scope
