#include "app/program.h"

#include <exception>
#include <utility>

#include "link/at_end.h"
#include "link/window_state.h"
#include "meter/panel_layouts.h"
#include "protocol/reply_text.h"
#include "protocol/scoped_flag.h"
#include "scope/scale_tables.h"

namespace vireon::app {

Program::Program(const ProgramPorts& ports, const std::string& folder)
    : interpreter(form, state, ports.beeper),
      dispatcher(form, state, interpreter),
      connection(form, state, link,
                 {ports.hid, ports.messages, ports.beeper, ports.serialPort, ports.pump, ports.searchView}),
      longWork(form, state, connection.operations(), ports.pump),
      waveform(form, state, interpreter),
      scopeControls(form, state, connection),
      meterControls(form, state, connection, ports.clock, ports.messages),
      sampling(form, state, link, connection),
      recordListing(form, state, ports.beeper),
      recall(form, state, connection, longWork, recordListing),
      loggerControls(form, state, connection, sampling, recall, ports.messages),
      fileCommands({form, state, interpreter, waveform, sampling, longWork, connection.operations()},
                   {ports.files, ports.fileDialogs, ports.messages, ports.clock, ports.beeper,
                    ports.compoundFiles, ports.documents},
                   folder),
      printOut(ports.desktop.printer, ports.files, ports.clock, folder),
      listPrint(form, longWork, ports.messages, printOut),
      frmCapture(ports.desktop.viewer, printOut),
      screenPrint(form, ports.pump, ports.desktop.steadyClock, ports.desktop.screen),
      pump_(ports.pump),
      messages_(ports.messages),
      searchView_(ports.searchView),
      settings_(ports.files),
      settingsPath_(folder + "/vireon.ini") {
  tie();
}

Program::~Program() {
  searchView_.onCancel = nullptr;
}

void Program::tie() {
  // Else the poll would run out of it again and again.
  frmCapture.onOutOfMemory = [this] { link::switchSampling(form, false); };
  form.onOutOfMemory = [this] {
    frmCapture.onOutOfMemory();
    outOfMemory_.tell(messages_);
  };
  connection.onFrame([this] { dispatcher.dspRcv(); });
  interpreter.effects.dspVinf = [this](int channel, int setting) {
    scope::dspVinf(form, state, channel, setting);
  };
  interpreter.effects.setSubPan = [this](int mode) { meter::setSubPan(form, mode); };
  interpreter.effects.setTabPan = [this] { meter::setTabPan(form); };
  dispatcher.sinks.scopeDraw = [this] { drawFrame(); };
  dispatcher.sinks.dspLog = [this] { recordListing.dspLog(); };

  scopeControls.connectEvents();
  meterControls.connectEvents();
  sampling.connectEvents();
  loggerControls.connectEvents();
  fileCommands.connectEvents();
  listPrint.connectEvents();
  screenPrint.connectEvents();
  screenPrint.onPicture = [this](capture::Picture picture) { frmCapture.show(std::move(picture)); };
  form.SSTab1.onSwitch = [this] { meter::SSTab1_Switch(form, state, connection); };
  form.SSTab1.onLook = [this] {
    const protocol::ScopedFlag busy(state.uiBusy);
    meter::setTabPan(form);
  };
  form.cmdBttn.onEach(&form::Button::onClick, [this](int index) { connection.cmdBttn_Click(index); });
  connection.operations().onIdle = [this] {
    if (std::exchange(closeWanted_, false) && closeLater) {
      closeLater();
    }
  };
  searchView_.onCancel = [this] {
    cancelled_ = true;
    connection.endWait();
  };
}

void Program::drawFrame() {
  try {
    waveform.scopeDraw();
  } catch (const std::exception&) {
    fileCommands.frameRejected();
    throw;
  }
}

void Program::Form_QueryUnload() {
  if (!loaded_ || protocol::leadingNumber(link.comPort) == 0) {
    return;
  }
  const auto answer = messages_.show(
      {"Exit", "     Save as Default ?", platform::MessageIcon::kNone, platform::MessageButtons::kYesNo});
  if (answer == platform::MessageAnswer::kYes) {
    writeSettings();
  }
}

void Program::Form_Unload() {
  frmCapture.Form_Unload();
  connection.leave();
}

bool Program::requestClose() {
  cancelled_ = true;
  screenPrint.cancel();
  if (connection.operations().running()) {
    closeWanted_ = true;
    connection.endWait();
    longWork.cancel();
    return false;
  }
  form.attend([this] {
    const link::AtEnd unload([this] { form.attend([this] { Form_Unload(); }); });
    Form_QueryUnload();
  });
  return true;
}

}  // namespace vireon::app
