#include <QLabel>

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
