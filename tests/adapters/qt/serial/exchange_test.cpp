#include "tests/adapters/qt/serial/serial_window_fixture.h"

namespace vireon::tests {
namespace {

class SerialExchange : public SerialWindowTest {};

class SerialExchangeRate : public SerialWindowTest, public testing::WithParamInterface<int> {};

TEST_P(SerialExchangeRate, ConnectsMovesASettingAndTakesALiveFrame) {
  startConnected(GetParam());
  click("cmdVu_0");
  EXPECT_TRUE(instrument().waitFor("command VDAup;VDA??"));
  turn();
  EXPECT_EQ(find<QLabel>("lblVd_0")->text(), QStringLiteral("2V"));
  program().connection.transKcmd("DRS??");
  EXPECT_TRUE(instrument().waitFor("command DRS??"));
  EXPECT_EQ(form().picScope.lines().size(), 248U);
  EXPECT_TRUE(messages.seen.empty());
  EXPECT_EQ(settingsNow(), settings(1, GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Each, SerialExchangeRate, testing::Values(1200, 2400, 4800, 9600),
                         [](const auto& rate) { return std::to_string(rate.param); });

TEST_F(SerialExchange, AtStartUpNothingIsSentAndThePortStaysClosed) {
  plugIn(1, 9600);
  start(1, 9600);
  EXPECT_EQ(linkState(), "COM1:9600");
  EXPECT_FALSE(serialPort.isOpen());
  EXPECT_EQ(instrument().control("quit"), "");
  EXPECT_FALSE(instrument().waitFor("command SIM??"));
}

TEST_F(SerialExchange, DisconnectingSendsTheInstrumentHomeAndClosesThePort) {
  startConnected();
  ASSERT_EQ(openCount(portPath(1)), 1);
  click("cmdBttn_0");
  EXPECT_TRUE(instrument().waitFor("command GTL"));
  EXPECT_EQ(openCount(portPath(1)), 0);
  EXPECT_TRUE(messages.seen.empty());
  expectDisconnected();
  expectWorks();
}

TEST_F(SerialExchange, ARefusedCommandIsAnAnswer) {
  startConnected();
  ASSERT_EQ(instrument().control("fault refuse"), "");
  ask();
  EXPECT_TRUE(program().link.rxEnq);
  EXPECT_FALSE(program().link.rxDone);
  EXPECT_EQ(linkState(), "Connected");
  EXPECT_TRUE(messages.seen.empty());
}

TEST_F(SerialExchange, ADeclinedSearchLeavesTheWindowDisconnectedAfterOneMessage) {
  plugIn(1, 4800);
  start(1, 9600);
  messages.answers = {QMessageBox::No};
  click("cmdBttn_0");
  ASSERT_EQ(messages.seen.size(), 1U);
  EXPECT_EQ(messages.seen[0].title, QStringLiteral("Communication Error"));
  EXPECT_EQ(messages.seen[0].text, QStringLiteral("Please check the communication cable & connector.\n"
                                                  "Re-search the ComPort and BaudRate with automatic?."));
  EXPECT_FALSE(program().connection.connected());
  EXPECT_EQ(openCount(portPath(1)), 0);
  EXPECT_EQ(settingsNow(), settings(1, 9600));
}

TEST_F(SerialExchange, AWrongRateIsFoundByTheSearchThatTheUserAgreesTo) {
  plugIn(2, 4800);
  start(2, 9600);
  messages.answers = {QMessageBox::Yes};
  click("cmdBttn_0");
  EXPECT_EQ(messages.seen.size(), 1U);
  EXPECT_EQ(linkState(), "Connected");
  EXPECT_EQ(program().link.comPort, "2");
  EXPECT_EQ(program().link.baudRate, "4800");
  EXPECT_EQ(program().link.comWait, 1600);
  EXPECT_EQ(settingsNow(), settings(2, 9600));
  ask();
  EXPECT_TRUE(program().link.rxDone);
}

TEST_F(SerialExchange, ASearchThatFindsNothingAsksAgain) {
  start(1, 9600);
  messages.answers = {QMessageBox::Yes, QMessageBox::Yes, QMessageBox::No};
  click("cmdBttn_0");
  EXPECT_EQ(messages.seen.size(), 3U);
  EXPECT_FALSE(program().connection.connected());
  EXPECT_EQ(linkState(), "COM1:9600");
}

TEST_F(SerialExchange, AForeignInstrumentIsNotConnected) {
  plugIn(1, 1200, {"--fault", "identity=Q1"});
  start(1, 9600);
  messages.answers = {QMessageBox::Yes, QMessageBox::No};
  click("cmdBttn_0");
  EXPECT_EQ(messages.seen.size(), 2U);
  EXPECT_FALSE(program().connection.connected());
}

}  // namespace
}  // namespace vireon::tests
