#include <QCursor>
#include <QDeadlineTimer>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <array>
#include <thread>
#include <vector>

#include "adapters/qt/painting_hid.h"
#include "adapters/qt/painting_patience.h"
#include "adapters/qt/painting_turn.h"
#include "adapters/qt/patient_timer.h"
#include "adapters/qt/timer_binding.h"
#include "tests/adapters/qt/held_hid.h"
#include "tests/adapters/qt/window_fixture.h"
#include "tests/fakes/fake_raw_hid.h"

namespace vireon::tests {
namespace {

using platform::HidOpenError;
using platform::HidTransfer;

// Paints again and again; counts it, and what the user does to it.
class Canvas : public QWidget {
 public:
  std::function<void(int paints)> onPaint;
  int paints = 0;
  int moves = 0;  // of the mouse

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    ++paints;
    if (onPaint) {
      onPaint(paints);
    }
    update();
  }
  void mouseMoveEvent(QMouseEvent* /*event*/) override { ++moves; }
};

class Painting : public testing::Test {
 protected:
  static constexpr int kPaints = 20;  // as long as a held call lasts
  static constexpr int kLimit = 30000;

  Painting() {
    canvas.resize(100, 100);
    canvas.setMouseTracking(true);
    canvas.show();
    QApplication::processEvents();
    canvas.onPaint = [this](int /*paints*/) {
      if (left > 0 && --left == 0) {
        held.release();
      }
    };
  }

  // Holds the next calls up until the canvas has been painted so often.
  void holdForPaints(int paints = kPaints) {
    left = paints;
    held.hold();
  }

  // Lets the window system move the mouse over the canvas; the event waits in its queue.
  void input() {
    const QPoint place = canvas.mapToGlobal(QPoint(50, 50));
    QCursor::setPos(QCursor::pos() == place ? place + QPoint(1, 0) : place);
  }

  std::unique_ptr<platform::HidHandle> opened() { return painting.open(nodes.nodes[0]).handle; }

  Canvas canvas;
  int left = 0;
  FakeRawHid nodes;
  HeldHid held{nodes};
  adapters::ModalGate gate;
  adapters::PaintingHid painting{held, gate};
};

TEST_F(Painting, GoesOnWhileEachCallIsHeldUp) {
  holdForPaints();
  EXPECT_EQ(painting.list().size(), 1U);
  EXPECT_EQ(left, 0);
  holdForPaints();
  auto handle = opened();
  ASSERT_NE(handle, nullptr);
  EXPECT_EQ(left, 0);
  std::array<std::uint8_t, 65> report{};
  holdForPaints();
  EXPECT_EQ(handle->write(report), HidTransfer::kDone);
  EXPECT_EQ(left, 0);
  holdForPaints();
  EXPECT_EQ(handle->read(report, std::chrono::milliseconds(1)), HidTransfer::kTimedOut);
  EXPECT_EQ(left, 0);
  holdForPaints();
  handle.reset();
  EXPECT_EQ(left, 0);
  EXPECT_EQ(nodes.openHandles(), 0U);
  EXPECT_FALSE(gate.paintingOnly());
}

TEST_F(Painting, EveryCallIsMadeByOneOtherThread) {
  opened().reset();
  painting.list();
  ASSERT_EQ(held.callers.size(), 3U);
  for (const std::thread::id caller : held.callers) {
    EXPECT_NE(caller, std::this_thread::get_id());
    EXPECT_EQ(caller, held.callers[0]);
  }
}

TEST_F(Painting, TheUsersInputWaitsForTheEndOfTheCall) {
  canvas.onPaint = [this](int /*paints*/) {
    if (left == kPaints) {
      input();
    }
    if (left > 0 && --left == 0) {
      EXPECT_EQ(canvas.moves, 0);
      held.release();
    }
  };
  holdForPaints();
  painting.list();
  EXPECT_EQ(canvas.moves, 0);
  EXPECT_TRUE(QTest::qWaitFor([this] { return canvas.moves > 0; }, kLimit));
}

TEST_F(Painting, TimersOfTheFormWaitAndTickOnceForAllTheirTicks) {
  form::Form form("form");
  form::Timer timer(form, "timer");
  int ticks = 0;
  timer.onTimer = [&] { ++ticks; };
  timer.setInterval(20);
  timer.setEnabled(true);
  adapters::TimerBinding binding(timer, gate);
  binding.show();
  int metronome = 0;
  QTimer clock;
  clock.setTimerType(Qt::PreciseTimer);
  clock.callOnTimeout([&] {
    if (++metronome == 6) {
      held.release();
    }
  });
  clock.start(20);
  held.hold();
  painting.list();
  EXPECT_EQ(ticks, 0);
  metronome = 0;
  EXPECT_TRUE(QTest::qWaitFor([&] { return metronome >= 3; }, kLimit));
  EXPECT_GE(ticks, 3);
  EXPECT_LE(ticks, 5);
}

TEST_F(Painting, ATickThatFellDueIsMadeUpForAtOnce) {
  form::Form form("form");
  form::Timer timer(form, "timer");
  int ticks = 0;
  timer.onTimer = [&] {
    ++ticks;
    timer.setEnabled(false);
  };
  timer.setInterval(300);
  timer.setEnabled(true);
  adapters::TimerBinding binding(timer, gate);
  binding.show();
  bool secondIsDue = false;
  QTimer due;
  due.setTimerType(Qt::PreciseTimer);
  due.callOnTimeout([&] {
    due.stop();
    held.release();
  });
  due.start(310);
  held.hold();
  painting.list();
  ASSERT_EQ(ticks, 0);
  // The timer's own next tick is farther away than this.
  QTimer second;
  second.callOnTimeout([&] { secondIsDue = true; });
  second.start(150);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks == 1; }, kLimit));
  EXPECT_FALSE(secondIsDue);
}

TEST_F(Painting, WhatElseHasWaitedComesBeforeTheNextTickOfATimerThatIsBehind) {
  form::Form form("form");
  form::Timer timer(form, "timer");
  int ticks = 0;
  std::vector<int> ticksBefore;
  adapters::PatientTimer first(gate, [&] { ticksBefore.push_back(ticks); });
  timer.onTimer = [&] {
    ++ticks;
    holdForPaints(4);
    painting.list();
  };
  timer.setInterval(1);
  timer.setEnabled(true);
  adapters::TimerBinding binding(timer, gate);
  canvas.onPaint = [&](int /*paints*/) {
    if (left == 2) {
      first.start();
      adapters::runLater(gate, canvas, [&] { ticksBefore.push_back(ticks); });
    }
    if (left > 0 && --left == 0) {
      held.release();
    }
  };
  binding.show();
  constexpr int kRounds = 10;
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= kRounds; }, kLimit));
  timer.setEnabled(false);
  binding.show();
  ASSERT_GE(ticksBefore.size(), 2U * (kRounds - 1));
  for (std::size_t each = 0; each < 2U * (kRounds - 1); ++each) {
    EXPECT_EQ(ticksBefore[each], static_cast<int>(each) / 2 + 1) << each;
  }
}

TEST_F(Painting, OutcomesAndBytesArePassedThrough) {
  nodes.lengths = {9, 17};
  nodes.answerAll(framed("abc"));
  nodes.openErrors = {{1, HidOpenError::kNoPermission}, {2, HidOpenError::kFailed}};
  EXPECT_EQ(painting.open(nodes.nodes[0]).error, HidOpenError::kNoPermission);
  const auto refused = painting.open(nodes.nodes[0]);
  EXPECT_EQ(refused.error, HidOpenError::kFailed);
  EXPECT_EQ(refused.handle, nullptr);
  const auto handle = opened();
  ASSERT_NE(handle, nullptr);
  EXPECT_EQ(handle->capabilities().inputReportLength, 9U);
  EXPECT_EQ(handle->capabilities().outputReportLength, 17U);
  std::array<std::uint8_t, 17> command{0, 2, 'x', 3};
  EXPECT_EQ(handle->write(command), HidTransfer::kDone);
  EXPECT_EQ(nodes.commands, std::vector<std::string>{"x"});
  std::array<std::uint8_t, 9> answer{};
  EXPECT_EQ(handle->read(answer, std::chrono::milliseconds(6000)), HidTransfer::kDone);
  EXPECT_EQ(std::string(answer.begin() + 1, answer.begin() + 6), framed("abc"));
  EXPECT_EQ(nodes.timeouts, std::vector{std::chrono::milliseconds(6000)});
  EXPECT_EQ(handle->read(answer, {}), HidTransfer::kTimedOut);
  EXPECT_EQ(handle->read(command, {}), HidTransfer::kWrongLength);
  nodes.deliver("late");
  handle->discardInput();
  EXPECT_EQ(handle->read(answer, {}), HidTransfer::kTimedOut);
  nodes.unplug();
  EXPECT_EQ(handle->write(command), HidTransfer::kFailed);
  EXPECT_EQ(handle->read(answer, {}), HidTransfer::kFailed);
  EXPECT_TRUE(painting.list().empty());
}

TEST_F(Painting, QuickCallsHardlyEverPaint) {
  const auto handle = opened();
  std::array<std::uint8_t, 65> report{};
  const int before = canvas.paints;
  for (int call = 0; call < 1000; ++call) {
    handle->write(report);
  }
  // A busy computer may let the other thread wait now and then.
  EXPECT_LT(canvas.paints - before, 50);
}

TEST_F(Painting, PatienceWithAFreshNodePaintsAndLeavesInputWaiting) {
  adapters::NodePatience patience = adapters::paintingPatience(gate);
  patience.age = [](const std::string&) { return 0.0; };
  const int before = canvas.paints;
  input();
  int attempts = 0;
  patience.open(
      "node", [&] { return ++attempts; }, [](int attempt) { return attempt < 4; });
  EXPECT_EQ(attempts, 4);
  EXPECT_GE(canvas.paints - before, 3);
  EXPECT_EQ(canvas.moves, 0);
  EXPECT_TRUE(QTest::qWaitFor([this] { return canvas.moves > 0; }, kLimit));
}

// The window on a device that can be held up.
class PaintingWindow : public testing::Test {
 protected:
  static constexpr int kLimit = 30000;

  PaintingWindow() {
    EXPECT_TRUE(session.show());
    QApplication::processEvents();
  }

  // Holds up what the action begins; meanwhile `during` happens, between two paints.
  void whileHeld(HeldHid::Calls calls, const std::function<void()>& action,
                 const std::function<void()>& during) {
    QTimer ticker;
    int turns = 0;
    ticker.callOnTimeout([&] {
      session.window().update();
      if (!held.holding()) {
        return;
      }
      if (++turns == 3) {
        during();
      } else if (turns == 10) {
        ticker.stop();
        held.release();
      }
    });
    ticker.start(1);
    held.hold(calls);
    action();
    EXPECT_EQ(turns, 10);
  }

  void expectClosedOnce() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return !session.window().isVisible(); }, kLimit));
    QApplication::processEvents();
    EXPECT_EQ(std::count(instrument.log().begin(), instrument.log().end(), "GTL"), 1);
    EXPECT_FALSE(session.program().link.usbOpen);
    EXPECT_TRUE(messages.seen.empty());
  }

  MessageWatcher messages;
  simulator::ManualClock clock;
  simulator::Instrument instrument{simulator::Model::kK7310, clock};
  simulator::UsbEndpoint endpoint{instrument, clock};
  app::SimulatedHid simulated{endpoint, simulator::Model::kK7310};
  HeldHid held{simulated};
  FakeSerialPort serialPort;
  app::MemoryFileStore files;
  adapters::ModalGate gate;
  adapters::PaintingHid hid{held, gate};
  app::Session session{{hid, serialPort, files}, "folder", gate};
};

TEST_F(PaintingWindow, ACloseRequestDuringAnExchangeWaitsForItsEnd) {
  session.program().form.cmdBttn[0].click();
  ASSERT_TRUE(session.program().connection.connected());
  whileHeld(
      HeldHid::Calls::kReads, [&] { session.program().connection.transKcmd("VDA??"); },
      [&] { session.window().close(); });
  EXPECT_TRUE(session.window().isVisible());
  EXPECT_EQ(instrument.log().back(), "VDA??");
  expectClosedOnce();
}

TEST_F(PaintingWindow, ACloseRequestWhileTheInstrumentIsSentHomeClosesOnce) {
  session.program().form.cmdBttn[0].click();
  whileHeld(
      HeldHid::Calls::kReads, [&] { session.window().close(); }, [&] { session.window().close(); });
  expectClosedOnce();
}

TEST_F(PaintingWindow, ACloseRequestWhileTheDeviceIsClosedClosesOnce) {
  session.program().form.cmdBttn[0].click();
  whileHeld(
      HeldHid::Calls::kCloses, [&] { session.window().close(); }, [&] { session.window().close(); });
  expectClosedOnce();
}

TEST_F(PaintingWindow, AnExitWhileTheDeviceIsClosedClosesOnce) {
  session.program().form.cmdBttn[0].click();
  whileHeld(
      HeldHid::Calls::kCloses, [&] { session.program().form.cmdBttn[1].click(); },
      [&] { session.window().close(); });
  expectClosedOnce();
}

TEST_F(PaintingWindow, ADeviceThatIsSlowToOpenConnects) {
  whileHeld(
      HeldHid::Calls::kAll, [&] { session.program().form.cmdBttn[0].click(); }, [] {});
  EXPECT_TRUE(session.program().connection.connected());
  EXPECT_TRUE(messages.seen.empty());
}

TEST(PaintingTurn, AButtonPressedByItsShortcutWaitsWithItsClick) {
  QPushButton button;
  button.show();
  int clicks = 0;
  QObject::connect(&button, &QPushButton::clicked, &button, [&clicks] { ++clicks; });
  adapters::ModalGate gate;
  button.animateClick();
  for (const QDeadlineTimer exchange(300); !exchange.hasExpired();) {
    adapters::paintingTurn(gate);
  }
  EXPECT_EQ(clicks, 0);
  EXPECT_TRUE(QTest::qWaitFor([&clicks] { return clicks == 1; }));
}

}  // namespace
}  // namespace vireon::tests
