#include "tests/adapters/qt/serial/serial_window_fixture.h"

namespace vireon::tests {
namespace {

// What the window does while it waits for an answer.
class SerialWait : public SerialWindowTest {
 protected:
  // Calls the action on each turn of a quick clock as long as the instrument leaves the program waiting.
  void onEachTick(const std::function<void()>& action) {
    ticker.callOnTimeout([this, action] {
      if (program().link.linkBusy) {
        action();
      }
    });
    ticker.start(5);
  }

  // Connects, and acts once in the search that follows; the messages before it are forgotten. Tells whether
  // there was one.
  bool connectAndSearch(const std::function<void()>& action) {
    bool acted = false;
    ticker.callOnTimeout([this, action, &acted] {
      if (program().link.portSearch && program().link.linkBusy && !std::exchange(acted, true)) {
        messages.seen.clear();
        action();
      }
    });
    ticker.start(1);
    click("cmdBttn_0");
    ticker.stop();
    return acted;
  }

  void expectOneQuestionOnClosing() {
    ASSERT_TRUE(until([this] { return !window().isVisible(); }));
    ASSERT_EQ(messages.seen.size(), 1U);
    EXPECT_EQ(messages.seen[0].title, QStringLiteral("Exit"));
    EXPECT_EQ(messages.seen[0].text, QStringLiteral("     Save as Default ?"));
  }

  QTimer ticker;
};

TEST_F(SerialWait, TimersTickAndTheWindowPaints) {
  startConnected();
  ASSERT_EQ(instrument().control("fault silence"), "");
  int ticks = 0;
  onEachTick([&] {
    find("picScope")->update();
    if (++ticks == 20) {
      program().connection.endWait();
    }
  });
  class Paints : public QObject {
   public:
    int count = 0;

   protected:
    bool eventFilter(QObject* /*object*/, QEvent* event) override {
      count += event->type() == QEvent::Paint ? 1 : 0;
      return false;
    }
  } paints;
  find("picScope")->installEventFilter(&paints);
  ask();
  EXPECT_EQ(ticks, 20);
  EXPECT_GE(paints.count, 5);
  EXPECT_TRUE(messages.seen.empty());
}

TEST_F(SerialWait, OfTheCommandsOfClicksMeanwhileOnlyTheLatestIsSent) {
  startConnected();
  ASSERT_EQ(instrument().control("fault once,late=200"), "");
  duringTheWait([this] {
    ASSERT_TRUE(program().link.linkBusy);
    QTest::mouseClick(find("cmdVu_1"), Qt::LeftButton);
    QTest::mouseClick(find("cmdTud_0"), Qt::LeftButton);
    QTest::mouseClick(find("cmdVd_1"), Qt::LeftButton);
    EXPECT_TRUE(program().link.cmdPending);
  });
  click("cmdVu_0");
  EXPECT_FALSE(program().link.cmdPending);
  EXPECT_EQ(instrument().nextLine(), "command VDAup;VDA??");
  EXPECT_EQ(instrument().nextLine(), "command VDBdn;VDB??");
  EXPECT_EQ(form().lblVd[1].caption(), "0.2V");
  ask();
  EXPECT_EQ(instrument().nextLine(), "command VDA??");
  EXPECT_TRUE(messages.seen.empty());
}

TEST_F(SerialWait, AParkedCommandIsDroppedForGoodWhenTheAnswerStaysAway) {
  startConnected();
  ASSERT_EQ(instrument().control("fault once,silence"), "");
  duringTheWait([this] { QTest::mouseClick(find("cmdVu_1"), Qt::LeftButton); });
  click("cmdVu_0");
  expectCommunicationError();
  expectWorks();
  EXPECT_EQ(instrument().nextLine(), "command VDAup;VDA??");
  EXPECT_EQ(instrument().nextLine(), "command DFN??");
  EXPECT_EQ(instrument().nextLine(), "command VDA??");
}

TEST_F(SerialWait, TheConnectButtonDuringAProbeIsIgnored) {
  plugIn(1, 9600, {"--fault", "late=200"});
  start(1, 9600);
  duringTheWait([this] { QTest::mouseClick(find("cmdBttn_0"), Qt::LeftButton); });
  click("cmdBttn_0");
  EXPECT_EQ(linkState(), "Connected");
  EXPECT_TRUE(messages.seen.empty());
  EXPECT_EQ(instrument().nextLine(), "command DFN??");
  ask();
  EXPECT_EQ(instrument().nextLine(), "command VDA??");
}

TEST_F(SerialWait, DisconnectingDuringAnExchangeSendsTheInstrumentHomeAfterItAndClosesThePort) {
  startConnected();
  ASSERT_EQ(instrument().control("fault once,late=200"), "");
  duringTheWait([this] { QTest::mouseClick(find("cmdBttn_0"), Qt::LeftButton); });
  click("cmdVu_0");
  EXPECT_EQ(instrument().nextLine(), "command VDAup;VDA??");
  EXPECT_EQ(instrument().nextLine(), "command GTL");
  EXPECT_EQ(openCount(portPath(1)), 0);
  EXPECT_TRUE(messages.seen.empty());
  expectDisconnected();
  expectWorks();
}

TEST_F(SerialWait, ClosingTheWindowEndsItWithoutAMessageAndAsksOnce) {
  startConnected();
  ASSERT_EQ(instrument().control("fault silence"), "");
  messages.answers = {QMessageBox::No};
  duringTheWait([this] { window().close(); });
  ask();
  expectOneQuestionOnClosing();
  EXPECT_EQ(settingsNow(), settings(1, 9600));
}

TEST_F(SerialWait, TheExitButtonEndsItWithoutAMessageAndAsksOnce) {
  startConnected();
  ASSERT_EQ(instrument().control("fault silence"), "");
  messages.answers = {QMessageBox::No};
  duringTheWait([this] { QTest::mouseClick(find("cmdBttn_1"), Qt::LeftButton); });
  ask();
  expectOneQuestionOnClosing();
}

TEST_F(SerialWait, ClosingTheWindowDuringAProbeAsksNothingElse) {
  plugIn(1, 9600, {"--fault", "silence"});
  start(1, 9600);
  messages.answers = {QMessageBox::No};
  duringTheWait([this] { window().close(); });
  click("cmdBttn_0");
  expectOneQuestionOnClosing();
}

TEST_F(SerialWait, ClosingTheWindowDuringASearchEndsIt) {
  plugIn(1, 9600, {"--fault", "silence"});
  start(2, 9600);
  messages.answers = {QMessageBox::Yes, QMessageBox::No};
  ASSERT_TRUE(connectAndSearch([this] { window().close(); }));
  expectOneQuestionOnClosing();
  EXPECT_EQ(program().link.comPort, "2");
}

TEST_F(SerialWait, TheExitButtonDuringASearchEndsIt) {
  plugIn(1, 9600, {"--fault", "silence"});
  start(2, 9600);
  messages.answers = {QMessageBox::Yes, QMessageBox::No};
  ASSERT_TRUE(connectAndSearch([this] { form().cmdBttn[1].click(); }));
  expectOneQuestionOnClosing();
}

TEST_F(SerialWait, ACancelledSearchLeavesTheWindowDisconnectedWithoutAnotherQuestion) {
  plugIn(1, 9600, {"--fault", "silence"});
  start(2, 9600);
  messages.answers = {QMessageBox::Yes};
  bool cancelled = false;
  ticker.callOnTimeout([&] {
    auto* const search = window().findChild<QWidget*>(QStringLiteral("searchWindow"));
    if (program().link.linkBusy && search != nullptr && !std::exchange(cancelled, true)) {
      EXPECT_TRUE(search->isVisible());
      QTest::keyClick(search, Qt::Key_Escape);
    }
  });
  ticker.start(1);
  click("cmdBttn_0");
  EXPECT_TRUE(cancelled);
  EXPECT_EQ(messages.seen.size(), 1U);
  EXPECT_TRUE(window().isVisible());
  EXPECT_FALSE(program().connection.connected());
  EXPECT_FALSE(serialPort.isOpen());
  ASSERT_EQ(instrument().control("fault none"), "");
  messages.answers = {QMessageBox::Yes};
  ticker.stop();
  click("cmdBttn_0");
  EXPECT_EQ(linkState(), "Connected");
}

TEST_F(SerialWait, ClosingAnIdleWindowKeepsPortAndRateWhereTheUserSaysSo) {
  plugIn(2, 4800);
  start(1, 9600);
  messages.answers = {QMessageBox::Yes, QMessageBox::Yes};
  click("cmdBttn_0");
  ASSERT_EQ(linkState(), "Connected");
  messages.seen.clear();
  window().close();
  expectOneQuestionOnClosing();
  EXPECT_EQ(settingsNow(), settings(2, 4800));
}

}  // namespace
}  // namespace vireon::tests
