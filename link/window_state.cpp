#include "link/window_state.h"

namespace vireon::link {

void switchSampling(form::MainForm& form, bool running) {
  form.cmdStart.setCaption(running ? "Stop" : "Start");
  form.cmdStart.setBackColor(running ? form::kLightGreen : form::kButtonFace);
  form.tmrInt.setEnabled(running);
}

void showConnected(form::MainForm& form, bool connected) {
  form.cmdBttn[0].setBackColor(connected ? form::kLightGreen : form::kButtonFace);
  form.cmdBttn[0].setCaption(connected ? "Disconnect" : "Connect");
  form.SSTab1.setEnabled(connected);
  form.cmdClock.setEnabled(connected);
  form.picMscope.setEnabled(connected);
  form.panDlog.setEnabled(connected);
  form.panScon.setEnabled(connected);
  form.cmdStart.setEnabled(connected);
  form.txtSTime.setEnabled(connected);
  if (!connected) {
    form.cmdLoad[1].setEnabled(true);
  }
}

void showLamps(form::MainForm& form, form::Color transmit, form::Color receive) {
  form.Txled[0].setFillColor(transmit);
  form.Txled[1].setFillColor(receive);
  form.Txled[0].refresh();
  form.Txled[1].refresh();
}

void fallBack(form::MainForm& form) {
  switchSampling(form, false);
  showConnected(form, false);
  form.StatusBar1.setPanel(2, "Disconnected");
  showLamps(form, form::kWhite, form::kWhite);
}

}  // namespace vireon::link
