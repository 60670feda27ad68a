#pragma once

#include "app/program.h"
#include "tests/fakes/fake_beeper.h"
#include "tests/fakes/fake_compound_files.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fakes/fake_document_opener.h"
#include "tests/fakes/fake_file_dialogs.h"
#include "tests/fakes/fake_file_store.h"
#include "tests/fakes/fake_message_boxes.h"
#include "tests/fakes/fake_message_pump.h"
#include "tests/fakes/fake_search_view.h"
#include "tests/fakes/fake_serial_port.h"
#include "tests/fakes/fake_wall_clock.h"

namespace vireon::tests {

// All that the program needs but USB, under a test's control.
struct FakePorts {
  app::ProgramPorts with(platform::RawHid& hid) { return with(hid, files); }
  app::ProgramPorts with(platform::RawHid& hid, platform::FileStore& ownFiles) {
    return {hid,       serialPort, pump,        messages,  searchView,    beeper,
            wallClock, ownFiles,   fileDialogs, documents, compoundFiles, desktop.ports(ownFiles)};
  }

  FakeMessageBoxes messages;
  FakeBeeper beeper;
  FakeWallClock wallClock{platform::CalendarTime{2007, 12, 21, 14, 5, 9}};
  FakeSerialPort serialPort;
  FakeMessagePump pump{serialPort};
  FakeSearchView searchView;
  FakeFileStore files;
  FakeFileDialogs fileDialogs;
  FakeDocumentOpener documents;
  FakeCompoundFiles compoundFiles;
  FakeDesktop desktop;
};

}  // namespace vireon::tests
