#pragma once

#include <gtest/gtest.h>

#include "capture/viewer.h"
#include "tests/fakes/fake_file_dialogs.h"
#include "tests/fakes/fake_file_store.h"
#include "tests/fakes/fake_message_boxes.h"
#include "tests/fakes/fake_picture_exchange.h"
#include "tests/fakes/fake_printer.h"
#include "tests/fakes/fake_viewer_window.h"
#include "tests/fakes/fake_wall_clock.h"

namespace vireon::tests {

inline const platform::Bitmap kSmallPicture{2, 3, {1, 2, 3, 4, 5, 6}};

// A viewer that has shown nothing yet.
class ViewerRig : public testing::Test {
 protected:
  FakeViewerWindows windows;
  FakeFileDialogs dialogs;
  FakeFileStore files;
  FakeMessageBoxes messages;
  FakeClipboard clipboard;
  FakePngEncoder png;
  FakePrinter printer;
  FakeWallClock clock{platform::CalendarTime{2007, 12, 21, 14, 5, 9}};
  files::PrintOut printOut{printer, files, clock, "folder"};
  capture::Viewer viewer{{windows, dialogs, files, messages, clipboard, png}, printOut};
};

}  // namespace vireon::tests
