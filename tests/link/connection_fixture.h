#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "link/connection_control.h"
#include "link/window_state.h"
#include "tests/fakes/fake_beeper.h"
#include "tests/fakes/fake_message_boxes.h"
#include "tests/fakes/fake_message_pump.h"
#include "tests/fakes/fake_raw_hid.h"
#include "tests/fakes/fake_search_view.h"
#include "tests/fakes/fake_serial_port.h"

namespace vireon::tests {

// A disconnected main window on the USB link, an instrument plugged in.
class ConnectionFixture : public testing::Test {
 protected:
  ConnectionFixture() {
    link::showConnected(form, false);
    pump.timeOut = &form.tmrCom;
    connection.onFrame([this] {
      const auto text = state.rxBuf.begin() + 1;
      frames.emplace_back(text, text + state.rxLen);
    });
  }

  // Connects the window if it is not, and forgets what that sent.
  void connect() {
    if (!connection.connected()) {
      connection.cmdBttn_Click(0);
    }
    ASSERT_TRUE(connection.connected());
    frames.clear();
    hid.forget();
  }

  // Sampling as the start button leaves it.
  void sample() {
    form.cmdStart.setCaption("Stop");
    form.cmdStart.setBackColor(form::kLightGreen);
    form.tmrInt.setEnabled(true);
  }

  std::vector<form::Control*> connectedControls() {
    return {&form.SSTab1,  &form.cmdClock, &form.picMscope, &form.panDlog,
            &form.panScon, &form.cmdStart, &form.txtSTime};
  }

  void expectIdle() {
    EXPECT_EQ(form.cmdStart.caption(), "Start");
    EXPECT_EQ(form.cmdStart.backColor(), form::kButtonFace);
    EXPECT_FALSE(form.tmrInt.enabled());
  }

  void expectDisconnected() {
    EXPECT_EQ(form.cmdBttn[0].backColor(), form::kButtonFace);
    EXPECT_EQ(form.StatusBar1.panel(2), "Disconnected");
    for (const form::Control* control : connectedControls()) {
      EXPECT_FALSE(control->enabled()) << control->name();
    }
    EXPECT_TRUE(form.cmdLoad[1].enabled());
    expectIdle();
    EXPECT_EQ(form.Txled[0].fillColor(), form::kWhite);
    EXPECT_EQ(form.Txled[1].fillColor(), form::kWhite);
    EXPECT_FALSE(link.usbOpen);
    EXPECT_EQ(hid.openHandles(), 0U);
  }

  void expectOneFailureMessage() {
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastTitle(), "Connection Error");
    EXPECT_EQ(messages.lastText(), "Device not detected...Please check USB cable & connector.");
    EXPECT_EQ(messages.shown.back().icon, platform::MessageIcon::kCritical);
    EXPECT_EQ(messages.shown.back().buttons, platform::MessageButtons::kOk);
  }

  FakeRawHid hid;
  FakeMessageBoxes messages;
  FakeBeeper beeper;
  form::MainForm form;
  protocol::InstrumentState state;
  link::LinkState link;
  FakeSerialPort serialPort;
  FakeMessagePump pump{serialPort};
  FakeSearchView searchView;
  link::ConnectionControl connection{
      form, state, link, {hid, messages, beeper, serialPort, pump, searchView}};
  std::vector<std::string> frames;  // texts handed to dspRcv
};

}  // namespace vireon::tests
