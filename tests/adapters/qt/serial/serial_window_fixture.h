#pragma once

#include <QLabel>
#include <QTimer>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "adapters/posix/posix_file_store.h"
#include "adapters/qt/program_places.h"
#include "adapters/qt/serial_port.h"
#include "tests/adapters/qt/serial/open_files.h"
#include "tests/adapters/qt/window_fixture.h"
#include "tests/fakes/fake_raw_hid.h"
#include "tests/fakes/simulator_process.h"
#include "tests/fakes/temporary_folder.h"

namespace vireon::tests {

// The real window with real files and real serial ports: COM1 to COM4 are simulated instruments, processes of
// their own, as far as a test plugs them in.
class SerialWindowTest : public ShownWindow {
 protected:
  static constexpr int kLimit = 30000;  // milliseconds until a test gives up waiting for a fact

  SerialWindowTest() { hid.nodes.clear(); }

  app::Session& shown() override { return session; }

  // Starts the instrument of a port.
  SimulatorProcess& plugIn(int com, int baud, std::vector<std::string> more = {}) {
    more.insert(more.begin(), {"--folder", folder.path().string(), "--com", std::to_string(com), "--baud",
                               std::to_string(baud)});
    auto& instrument = instruments[com] = std::make_unique<SimulatorProcess>(std::move(more));
    EXPECT_EQ(instrument->nextLine(), "ready " + portPath(com));
    return *instrument;
  }
  SimulatorProcess& instrument(int com = 1) { return *instruments.at(com); }
  std::string portPath(int com) const { return folder.file("COM" + std::to_string(com)); }

  // What the first run writes for an instrument at this port.
  static std::string settings(int com, int baud) {
    const std::vector<std::pair<std::string, std::string>> values = {
        {"Caption", "Vireon K7310 Scope and Meter"},
        {"System ID", "K7310 "},
        {"ProductId", "-8188"},
        {"Tabs", "2"},
        {"ComPort", std::to_string(com)},
        {"BaudRate", std::to_string(baud)}};
    std::string text;
    for (const auto& [key, value] : values) {
      text.append("[" + key + "]\r\n").append(key + "=" + value + "\r\n");
    }
    return text;
  }
  std::string settingsPath() const { return folder.file("vireon.ini"); }

  // Starts the program with a settings file for this port.
  void start(int com, int baud) {
    writeFile(settingsPath(), settings(com, baud));
    ASSERT_TRUE(session.show());
    turn();
  }

  // The instrument at COM1 and the window, connected.
  void startConnected(int baud = 9600) {
    plugIn(1, baud);
    start(1, baud);
    click("cmdBttn_0");
    ASSERT_EQ(linkState(), "Connected");
    ASSERT_TRUE(instrument().waitFor("command DFN??"));
  }

  // Does something at the next turn of the event loop, so while the program waits.
  template <class Action>
  void duringTheWait(Action action) {
    QTimer::singleShot(0, &inTheWait, std::move(action));
  }

  template <class Fact>
  bool until(const Fact& fact) {
    return QTest::qWaitFor(fact, kLimit);
  }

  std::string linkState() { return find<QLabel>("StatusBar1_2")->text().toStdString(); }
  std::string hint() { return find<QLabel>("StatusBar1_1")->text().toStdString(); }

  void expectDisconnected() {
    EXPECT_EQ(linkState(), "Disconnected");
    EXPECT_FALSE(form().SSTab1.enabled());
    for (const char* name : {"cmdClock", "picMscope", "panDlog", "panScon", "cmdStart", "txtSTime"}) {
      EXPECT_FALSE(find(name)->isEnabled()) << name;
    }
    EXPECT_FALSE(form().tmrInt.enabled());
    EXPECT_FALSE(form().tmrCom.enabled());
    EXPECT_FALSE(program().link.linkBusy);
    EXPECT_EQ(form().Txled[0].fillColor(), form::kWhite);
    EXPECT_EQ(form().Txled[1].fillColor(), form::kWhite);
    EXPECT_FALSE(serialPort.isOpen());
    EXPECT_FALSE(session.program().connection.connected());
  }

  void expectCommunicationError() {
    ASSERT_EQ(messages.seen.size(), 1U);
    EXPECT_EQ(messages.seen[0].title, QStringLiteral("Communication Error"));
    EXPECT_EQ(messages.seen[0].text, QStringLiteral("Device Unavailable or Communication Error"));
    EXPECT_EQ(messages.seen[0].icon, QMessageBox::Critical);
  }

  // Connects anew and has one answer.
  void expectWorks() {
    const std::size_t told = messages.seen.size();
    click("cmdBttn_0");
    EXPECT_EQ(linkState(), "Connected");
    ask();
    EXPECT_TRUE(program().link.rxDone);
    EXPECT_EQ(messages.seen.size(), told);
  }

  void ask() { program().connection.transKcmd("VDA??"); }

  std::string settingsNow() const { return contentOf(settingsPath()); }

  MessageWatcher messages;
  QObject inTheWait;
  TemporaryFolder folder;
  std::map<int, std::unique_ptr<SimulatorProcess>> instruments;
  FakeRawHid hid;
  adapters::ModalGate gate;
  adapters::QtSerialPort serialPort{
      gate, [this](int com) { return adapters::comDevice(com, folder.path().string(), {}); }};
  adapters::PosixFileStore files;
  app::Session session{{hid, serialPort, files}, folder.path().string(), gate};
};

}  // namespace vireon::tests
