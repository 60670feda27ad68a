#pragma once

#include <string>

#include "app/desktop_ports.h"
#include "tests/fakes/fake_file_dialogs.h"
#include "tests/fakes/fake_file_store.h"
#include "tests/fakes/fake_message_boxes.h"
#include "tests/fakes/fake_picture_exchange.h"
#include "tests/fakes/fake_printer.h"
#include "tests/fakes/fake_screen_grab.h"
#include "tests/fakes/fake_steady_clock.h"
#include "tests/fakes/fake_viewer_window.h"

namespace vireon::tests {

// What capturing and printing need, all of it under a test's control.
struct FakeDesktop {
  app::DesktopPorts ports(platform::FileStore& files) {
    return {steadyClock, screen, printer, {viewers, dialogs, files, messages, clipboard, png}};
  }

  FakeSteadyClock steadyClock;
  FakeScreenGrab screen;
  FakePrinter printer;
  FakeViewerWindows viewers;
  FakeFileDialogs dialogs;
  FakeMessageBoxes messages;  // over the viewer
  FakeClipboard clipboard;
  FakePngEncoder png;
};

}  // namespace vireon::tests
