#include <QLabel>
#include <QLineEdit>
#include <QSlider>

#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

using namespace std::chrono_literals;

class Unplug : public WindowTest {
 protected:
  void expectDisconnected() {
    EXPECT_EQ(find<QLabel>("StatusBar1_2")->text(), QStringLiteral("Disconnected"));
    EXPECT_FALSE(form().SSTab1.enabled());
    for (const char* name : {"cmdClock", "picMscope", "panDlog", "panScon", "cmdStart", "txtSTime"}) {
      EXPECT_FALSE(find(name)->isEnabled()) << name;
    }
    EXPECT_FALSE(form().tmrInt.enabled());
    EXPECT_EQ(find<QAbstractButton>("cmdStart")->text(), QStringLiteral("Start"));
  }
};

TEST_F(Unplug, AtEachReportOfALiveExchangeGivesOneMessageAndACleanReconnect) {
  goLive();
  const std::size_t reports = endpoint.exchangeReports();
  ASSERT_EQ(reports, 10U);
  for (std::size_t report = 1; report <= reports; ++report) {
    SCOPED_TRACE(report);
    messages.seen.clear();
    simulator::Faults faults;
    faults.unplugAtReport = report;
    endpoint.setFaults(faults);
    tick();
    ASSERT_EQ(messages.seen.size(), 1U);
    EXPECT_EQ(messages.seen[0].title, QStringLiteral("Connection Error"));
    EXPECT_EQ(messages.seen[0].text,
              QStringLiteral("Device not detected...Please check USB cable & connector."));
    EXPECT_EQ(messages.seen[0].icon, QMessageBox::Critical);
    expectDisconnected();

    endpoint.setFaults({});
    endpoint.plug();
    goLive();
    EXPECT_EQ(find<QLabel>("StatusBar1_2")->text(), QStringLiteral("Connected"));
    EXPECT_EQ(form().picScope.lines().size(), 248U);
    EXPECT_EQ(messages.seen.size(), 1U);
  }
}

TEST_F(Unplug, AButtonThatComesUpBehindTheMessageAfterItsShortcutDoesNothing) {
  goLive();
  auto* const button = find<QAbstractButton>("cmdVu_0");
  messages.whileOpen = [&] { EXPECT_TRUE(QTest::qWaitFor([&] { return !button->isDown(); }, 30000)); };
  endpoint.unplug();
  button->animateClick();
  form().tmrInt.tick();
  letHappen(150ms);
  EXPECT_EQ(messages.seen.size(), 1U);
  expectDisconnected();
}

TEST_F(Unplug, WhatIsTurnedBehindTheMessageGoesBackWithTheWindow) {
  goLive();
  const int position = find<QSlider>("sldPosH")->value();
  const QString time = find<QLineEdit>("txtSTime")->text();
  messages.whileOpen = [&] {
    find<QAbstractButton>("chkVac_0")->toggle();
    find<QAbstractButton>("optTS_1")->toggle();
    find<QSlider>("sldPosH")->setValue(position + 1);
    find<QLineEdit>("txtSTime")->setText(QStringLiteral("3"));
  };
  endpoint.unplug();
  form().tmrInt.tick();
  letHappen(150ms);
  EXPECT_EQ(messages.seen.size(), 1U);
  EXPECT_EQ(find<QAbstractButton>("chkVac_0")->isChecked(), form().chkVac[0].value() == 1);
  EXPECT_EQ(find<QAbstractButton>("optTS_0")->isChecked(), form().optTS[0].value());
  EXPECT_EQ(find<QAbstractButton>("optTS_1")->isChecked(), form().optTS[1].value());
  EXPECT_EQ(find<QSlider>("sldPosH")->value(), position);
  EXPECT_EQ(find<QLineEdit>("txtSTime")->text(), time);
}

TEST_F(Unplug, NoTimerTicksWhileTheMessageIsOpenNorAfterIt) {
  goLive();
  form().tmrInt.setInterval(1);
  int ticks = 0;
  form().tmrInt.onTimer = [&ticks, poll = form().tmrInt.onTimer] {
    ++ticks;
    poll();
  };
  messages.whileOpen = [] { letHappen(20ms); };
  endpoint.unplug();
  form().tmrInt.tick();
  letHappen(20ms);
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(messages.seen.size(), 1U);
}

TEST_F(Unplug, BeforeConnectingGivesOneMessageAndStaysDisconnected) {
  endpoint.unplug();
  click("cmdBttn_0");
  EXPECT_EQ(messages.seen.size(), 1U);
  expectDisconnected();
}

TEST_F(Unplug, WhileIdleIsToldByTheNextCommand) {
  click("cmdBttn_0");
  endpoint.unplug();
  click("cmdVu_0");
  EXPECT_EQ(messages.seen.size(), 1U);
  expectDisconnected();
}

}  // namespace
}  // namespace vireon::tests
