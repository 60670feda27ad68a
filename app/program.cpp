#include "app/program.h"

#include <string_view>

#include "meter/panel_layouts.h"
#include "protocol/reply_text.h"
#include "protocol/vocabulary.h"
#include "scope/scale_tables.h"

namespace vireon::app {
namespace {

constexpr std::int16_t kFirstProductId = -8191;  // E001 to E004 hexadecimal, as signed 16 bits
constexpr std::int16_t kLastProductId = -8188;
constexpr std::string_view kTwoTabModel = "K7310";

}  // namespace

Program::Program(const ProgramPorts& ports)
    : interpreter(form, state, ports.beeper),
      dispatcher(form, state, interpreter),
      connection(form, state, link, {ports.hid, ports.messages, ports.beeper}),
      waveform(form, state, interpreter),
      scopeControls(form, state, connection),
      meterControls(form, state, connection, ports.clock),
      sampling(form, state, link, connection),
      loggerControls(form, state, connection, sampling) {
  tie();
}

void Program::tie() {
  connection.dspRcv = [this] { dispatcher.dspRcv(); };
  interpreter.effects.dspVinf = [this](int channel, int setting) {
    scope::dspVinf(form, state, channel, setting);
  };
  interpreter.effects.setSubPan = [this](int mode) { meter::setSubPan(form, mode); };
  interpreter.effects.setTabPan = [this] { meter::setTabPan(form); };
  dispatcher.sinks.scopeDraw = [this] { waveform.scopeDraw(); };

  scopeControls.connectEvents();
  meterControls.connectEvents();
  sampling.connectEvents();
  loggerControls.connectEvents();
  form.SSTab1.onSwitch = [this] { meter::SSTab1_Switch(form, state, connection); };
  form.cmdBttn[0].onClick = [this] { connectOrDisconnect(); };
  form.cmdBttn[1].onClick = [this] { connection.cmdBttn_Click(1); };
}

void Program::load() {
  identify();
  const protocol::UiBusyScope busy(state);
  showModel();
  prepareWindow();
}

// Tries the product identifiers of all models and keeps the one that is there; True when it could be opened.
bool Program::findInstrument() {
  for (int productId = kFirstProductId; productId <= kLastProductId; ++productId) {
    link.usbProductId = static_cast<std::int16_t>(productId);
    const bool opened = connection.apiUsb().findDevice();
    if (opened || connection.apiUsb().openError() != platform::HidOpenError::kNotFound) {
      return opened;
    }
  }
  link.usbProductId = kFirstProductId;
  return false;
}

void Program::identify() {
  if (findInstrument()) {
    connection.trans_usb(protocol::kQueryIdentity);
  }
}

// As long as no model is known, any of the family may have been plugged in meanwhile.
void Program::connectOrDisconnect() {
  if (!connection.connected() && state.modelId.empty()) {
    findInstrument();
  }
  connection.cmdBttn_Click(0);
}

void Program::showModel() {
  const std::string_view model = protocol::trimmed(state.modelId);
  if (!model.empty() && model != kTwoTabModel) {
    form.SSTab1.setTabs(1);
    form.cmdClock.setVisible(false);
  }
}

void Program::prepareWindow() {
  form.StatusBar1.setPanel(2, "USB(HID)");
  form.posT.setCaption("~T");
  form.posDV[0].setCaption("CHA");
  form.posDV[1].setCaption("CHB");
  scope::initLbl(form, state);
  form.SSTab1.setTab(0);
  meter::setTabPan(form);
  for (form::PictureBox* panel : {&form.panTrd, &form.picSet, &form.picSwin[0], &form.picSwin[1]}) {
    panel->setVisible(false);
  }
  connection.showConnected(false);
}

}  // namespace vireon::app
