#include "app/executables/session.h"

namespace vireon::app {

Session::Session(const SessionPorts& ports, const std::string& folder, adapters::ModalGate& gate)
    : gate_(gate),
      program_({ports.hid, ports.serialPort, pump_, messages_, searchWindow_, beeper_, clock_, ports.files,
                fileDialogs_, documents_, compoundFiles_, desktopPorts(ports)},
               folder),
      window_(std::make_unique<adapters::MainWindow>(program_.form, gate)) {}

DesktopPorts Session::desktopPorts(const SessionPorts& ports) {
  platform::Printer* printer = ports.printer;
  if (printer == nullptr) printer = &desktop_.printer;
  return {desktop_.steadyClock,
          desktop_.screen,
          *printer,
          {desktop_.viewers, desktop_.viewerDialogs, ports.files, desktop_.viewerMessages, desktop_.clipboard,
           desktop_.png}};
}

bool Session::show() {
  messages_.setParentWindow(&searchWindow_);
  if (!program_.Form_Load()) {
    return false;
  }
  messages_.setParentWindow(window_.get());
  fileDialogs_.setParentWindow(window_.get());
  desktop_.screen.setMainWindow(window_.get());
  searchWindow_.standOver(window_.get());
  window_->mayClose = [this] { return program_.requestClose(); };
  window_->mayOpen = [this] { return !program_.longWork.running(); };
  window_->openDropped = [this](const std::string& path) { program_.fileCommands.openSaved(path); };
  program_.closeLater = [this] { window_->closeLater(); };
  program_.connection.unloadForm = [this] { window_->close(); };
  window_->binder().flush();
  window_->show();
  return true;
}

}  // namespace vireon::app
