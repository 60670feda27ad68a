#include "app/executables/session.h"

namespace vireon::app {

Session::Session(platform::RawHid& hid) : program_({hid, messages_, beeper_, clock_}) {}

void Session::show() {
  program_.load();
  window_ = std::make_unique<adapters::MainWindow>(program_.form, gate_);
  messages_.setParentWindow(window_.get());
  window_->onUnload = [this] { program_.unload(); };
  program_.connection.unloadForm = [this] { window_->close(); };
  window_->show();
}

}  // namespace vireon::app
