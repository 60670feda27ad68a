#pragma once

#include "adapters/qt/desktop_grab.h"
#include "adapters/qt/file_dialogs.h"
#include "adapters/qt/message_boxes.h"
#include "adapters/qt/modal_gate.h"
#include "adapters/qt/picture_exchange.h"
#include "adapters/qt/printer.h"
#include "adapters/qt/steady_clock.h"
#include "adapters/qt/viewer_window.h"

namespace vireon::adapters {

// The parts of this desktop that capturing and printing need. Needs a running QApplication.
struct Desktop {
  // `gate` outlives this object.
  explicit Desktop(ModalGate& gate)
      : printer(gate), viewerMessages(gate), viewerDialogs(gate), viewers(gate) {
    viewers.onNew = [this](QWidget& window) {
      viewerMessages.setParentWindow(&window);
      viewerDialogs.setParentWindow(&window);
    };
  }
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  ~Desktop() = default;

  SystemSteadyClock steadyClock;
  DesktopGrab screen;
  QtPrinter printer;
  QtClipboard clipboard;
  QtPngEncoder png;
  QtMessageBoxes viewerMessages;  // over the viewer's window, as its dialogs
  QtFileDialogs viewerDialogs;
  QtViewerWindows viewers;
};

}  // namespace vireon::adapters
