#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "app/memory_file_store.h"
#include "app/simulated_hid.h"
#include "simulator/instrument.h"
#include "tests/adapters/qt/shown_window.h"
#include "tests/fakes/fake_serial_port.h"

namespace vireon::tests {

// Turns the event loop until a timer that is started now has rung: whatever was posted, or due before it, has
// happened by then, however slow the machine is.
inline void letHappen(std::chrono::milliseconds due = {}) {
  QEventLoop loop;
  QTimer last;
  last.setSingleShot(true);
  last.setTimerType(Qt::PreciseTimer);
  QObject::connect(&last, &QTimer::timeout, &loop, &QEventLoop::quit);
  last.start(due);
  loop.exec();
}

// Answers every message box as soon as it is shown, and remembers what it said.
class MessageWatcher : public QObject {
 public:
  struct Seen {
    QString title;
    QString text;
    QMessageBox::Icon icon;
  };

  MessageWatcher() { qApp->installEventFilter(this); }

  std::vector<Seen> seen;
  std::function<void()> whileOpen;

  // The buttons pressed in the next boxes; where there are no more, the first one of the box.
  std::deque<QMessageBox::StandardButton> answers;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    auto* box = qobject_cast<QMessageBox*>(object);
    if (box != nullptr && event->type() == QEvent::Show) {
      seen.push_back({box->windowTitle(), box->text(), box->icon()});
      QMetaObject::invokeMethod(
          box,
          [this, box] {
            if (whileOpen) {
              whileOpen();
            }
            answer(*box);
          },
          Qt::QueuedConnection);
    }
    return QObject::eventFilter(object, event);
  }

 private:
  void answer(QMessageBox& box) {
    QAbstractButton* button = box.buttons().front();
    if (!answers.empty()) {
      if (QAbstractButton* const chosen = box.button(answers.front())) {
        button = chosen;
      }
      answers.pop_front();
    }
    button->click();
  }
};

// The real window on a simulated instrument whose time stands still unless a test moves it.
class WindowTest : public ShownWindow {
 protected:
  explicit WindowTest(simulator::Model model = simulator::Model::kK7310)
      : instrument(model, clock), endpoint(instrument, clock), hid(endpoint, model) {
    EXPECT_TRUE(session.show());
    turn();
  }

  app::Session& shown() override { return session; }

  // Connects and takes the first live frame.
  void goLive() {
    click("cmdBttn_0");
    click("cmdStart");
    tick();
  }

  void tick() {
    clock.advance(std::chrono::milliseconds(500));
    form().tmrInt.tick();
    turn();
  }

  std::string lastCommand() const { return instrument.log().empty() ? "" : instrument.log().back(); }

  MessageWatcher messages;
  simulator::ManualClock clock;
  simulator::Instrument instrument;
  simulator::UsbEndpoint endpoint;
  app::SimulatedHid hid;
  FakeSerialPort serialPort;
  app::MemoryFileStore files;
  adapters::ModalGate gate;
  app::Session session{{hid, serialPort, files}, "folder", gate};
};

}  // namespace vireon::tests
