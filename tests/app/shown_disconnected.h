#pragma once

#include <gtest/gtest.h>

#include <initializer_list>

#include "app/program.h"

namespace vireon::tests {

// The window says that it is disconnected, offers nothing that needs a device, and waits for nothing.
inline void expectShownDisconnected(const app::Program& program) {
  const form::MainForm& form = program.form;
  EXPECT_FALSE(program.connection.connected());
  EXPECT_EQ(form.StatusBar1.panel(2), "Disconnected");
  for (const form::Control* control : std::initializer_list<const form::Control*>{
           &form.SSTab1, &form.cmdClock, &form.picMscope, &form.panDlog, &form.panScon, &form.cmdStart,
           &form.txtSTime}) {
    EXPECT_FALSE(control->enabled()) << control->name();
  }
  EXPECT_FALSE(form.tmrInt.enabled());
  EXPECT_EQ(form.Txled[0].fillColor(), form::kWhite);
  EXPECT_EQ(form.Txled[1].fillColor(), form::kWhite);
  EXPECT_FALSE(program.link.usbOpen);
  EXPECT_FALSE(program.state.uiBusy);
}

}  // namespace vireon::tests
