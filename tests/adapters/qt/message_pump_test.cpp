#include "adapters/qt/message_pump.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>

#include "adapters/qt/message_boxes.h"
#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

TEST(QtMessagePumpTest, PumpHandlesWhatWaitsAndReturns) {
  adapters::QtMessagePump pump;
  bool handled = false;
  QMetaObject::invokeMethod(
      qApp, [&] { handled = true; }, Qt::QueuedConnection);
  pump.pump();
  EXPECT_TRUE(handled);
  handled = false;
  pump.pump();
  EXPECT_FALSE(handled);
}

TEST(QtMessagePumpTest, WaitSleepsUntilSomethingHappens) {
  adapters::QtMessagePump pump;
  QApplication::processEvents();
  bool ticked = false;
  QTimer::singleShot(100, qApp, [&] { ticked = true; });
  int turns = 0;
  while (!ticked) {
    pump.wait();
    ++turns;
  }
  EXPECT_LT(turns, 20);
}

TEST(QtMessagePumpTest, AWaitWithALimitEndsThoughNothingHappens) {
  adapters::QtMessagePump pump;
  QElapsedTimer time;
  time.start();
  const std::chrono::milliseconds limit(50);
  while (!time.hasExpired(limit.count())) pump.waitAtMost(limit);
  EXPECT_TRUE(time.hasExpired(limit.count()));
}

TEST(QtMessagePumpTest, AWaitWithALimitEndsWithWhatHappensFirst) {
  adapters::QtMessagePump pump;
  QApplication::processEvents();
  bool ticked = false;
  QTimer::singleShot(20, qApp, [&] { ticked = true; });
  const QDeadlineTimer patience(30000);
  while (!ticked && !patience.hasExpired()) pump.waitAtMost(std::chrono::hours(1));
  EXPECT_TRUE(ticked);
}

TEST(QtMessagePumpTest, AWaitInsideAHandlerOfAWaitSeesTheNextEvent) {
  adapters::QtMessagePump pump;
  bool inner = false;
  bool outer = false;
  QTimer::singleShot(0, qApp, [&] {
    QTimer::singleShot(0, qApp, [&] { inner = true; });
    while (!inner) {
      pump.wait();
    }
    outer = true;
  });
  while (!outer) {
    pump.wait();
  }
  EXPECT_TRUE(inner);
}

class QtMessageBoxesTest : public testing::Test {
 protected:
  platform::MessageAnswer ask(QMessageBox::StandardButton button) {
    watcher.answers = {button};
    return boxes.show({"Title", "one\r\ntwo <b>& three", platform::MessageIcon::kCritical,
                       platform::MessageButtons::kYesNo});
  }

  MessageWatcher watcher;
  adapters::ModalGate gate;
  adapters::QtMessageBoxes boxes{gate};
};

TEST_F(QtMessageBoxesTest, LinesEndWithoutCarriageReturns) {
  ask(QMessageBox::Yes);
  ASSERT_EQ(watcher.seen.size(), 1U);
  EXPECT_EQ(watcher.seen[0].text, QStringLiteral("one\ntwo <b>& three"));
  EXPECT_EQ(watcher.seen[0].title, QStringLiteral("Title"));
  EXPECT_EQ(watcher.seen[0].icon, QMessageBox::Critical);
}

TEST_F(QtMessageBoxesTest, TheAnswerIsTheButton) {
  EXPECT_EQ(ask(QMessageBox::Yes), platform::MessageAnswer::kYes);
  EXPECT_EQ(ask(QMessageBox::No), platform::MessageAnswer::kNo);
  EXPECT_EQ(boxes.show({"Title", "text"}), platform::MessageAnswer::kOk);
}

TEST_F(QtMessageBoxesTest, EscapeAndClosingMeanNo) {
  const auto answered = [this](const std::function<void(QMessageBox&)>& act) {
    qApp->removeEventFilter(&watcher);
    QTimer::singleShot(0, qApp, [&] { act(*qobject_cast<QMessageBox*>(QApplication::activeModalWidget())); });
    return boxes.show({"Title", "text", platform::MessageIcon::kNone, platform::MessageButtons::kYesNo});
  };
  EXPECT_EQ(answered([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
            platform::MessageAnswer::kNo);
  EXPECT_EQ(answered([](QMessageBox& box) { box.close(); }), platform::MessageAnswer::kNo);
}

TEST_F(QtMessageBoxesTest, GoneWithItsWindowAQuestionIsAnsweredByNo) {
  auto window = std::make_unique<QWidget>();
  boxes.setParentWindow(window.get());
  qApp->removeEventFilter(&watcher);
  QTimer::singleShot(0, qApp, [&] { window.reset(); });
  EXPECT_EQ(boxes.show({"title", "text", platform::MessageIcon::kNone, platform::MessageButtons::kYesNo}),
            platform::MessageAnswer::kNo);
  EXPECT_FALSE(gate.closed());
}

TEST_F(QtMessageBoxesTest, TheGateIsClosedWhileAMessageIsOpen) {
  bool closed = false;
  watcher.whileOpen = [&] { closed = gate.closed(); };
  ask(QMessageBox::No);
  EXPECT_TRUE(closed);
  EXPECT_FALSE(gate.closed());
}

}  // namespace
}  // namespace vireon::tests
