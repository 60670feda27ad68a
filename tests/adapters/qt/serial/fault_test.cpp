#include "tests/adapters/qt/serial/serial_window_fixture.h"

namespace vireon::tests {
namespace {

// What goes wrong on a real port; after each fault the window connects again.
class SerialFault : public SerialWindowTest {};

struct Silencing {
  const char* name;
  const char* fault;

  friend std::ostream& operator<<(std::ostream& out, const Silencing& shown) { return out << shown.fault; }
};

class SerialFaultThatEndsTheWait : public SerialFault, public testing::WithParamInterface<Silencing> {};

TEST_P(SerialFaultThatEndsTheWait, IsToldOnceAndConnectsAgain) {
  startConnected();
  ASSERT_EQ(instrument().control(std::string("fault ") + GetParam().fault), "");
  ask();
  turn();
  expectCommunicationError();
  expectDisconnected();
  EXPECT_EQ(openCount(portPath(1)), 0);
  ASSERT_EQ(instrument().control("fault none"), "");
  expectWorks();
  EXPECT_EQ(settingsNow(), settings(1, 9600));
}

INSTANTIATE_TEST_SUITE_P(Table, SerialFaultThatEndsTheWait,
                         testing::Values(Silencing{"NoAnswer", "silence"}, Silencing{"HalfAnAnswer", "cut=6"},
                                         Silencing{"AStartByteAlone", "cut=1"},
                                         Silencing{"OtherCodes", "code=7"}, Silencing{"NoEnd", "endless=602"},
                                         Silencing{"AnAnswerTooLate", "late=1000"}),
                         [](const auto& fault) { return std::string(fault.param.name); });

struct Harmless {
  const char* name;
  const char* fault;

  friend std::ostream& operator<<(std::ostream& out, const Harmless& shown) { return out << shown.fault; }
};

class SerialFaultThatIsHarmless : public SerialFault, public testing::WithParamInterface<Harmless> {};

TEST_P(SerialFaultThatIsHarmless, StillBringsTheAnswerAndTheNextOne) {
  startConnected();
  form().lblVd[0].setCaption("");
  ASSERT_EQ(instrument().control(std::string("fault ") + GetParam().fault), "");
  click("cmdVu_0");
  EXPECT_EQ(form().lblVd[0].caption(), "2V");
  click("cmdVd_0");
  EXPECT_EQ(form().lblVd[0].caption(), "1V");
  EXPECT_TRUE(messages.seen.empty());
  EXPECT_EQ(linkState(), "Connected");
}

INSTANTIATE_TEST_SUITE_P(Table, SerialFaultThatIsHarmless,
                         testing::Values(Harmless{"SplitAtEveryByte", "split=2"},
                                         Harmless{"TwoAnswersInOneChunk", "twice"},
                                         Harmless{"AStartByteInMidFrame", "false-start"},
                                         Harmless{"AnAnswerInTime", "late=200"}),
                         [](const auto& fault) { return std::string(fault.param.name); });

TEST_F(SerialFault, AWaveformSplitAtEveryByteIsDrawn) {
  startConnected();
  ASSERT_EQ(instrument().control("fault split=0"), "");
  program().connection.transKcmd("DRS??");
  EXPECT_EQ(form().picScope.lines().size(), 248U);
  EXPECT_TRUE(messages.seen.empty());
}

class SerialFaultPulledOut : public SerialFault, public testing::WithParamInterface<const char*> {};

TEST_P(SerialFaultPulledOut, WhileWaitingIsToldOnceAndConnectsAgain) {
  startConnected();
  ASSERT_EQ(instrument().control(std::string("fault ") + GetParam()), "");
  ask();
  turn();
  expectCommunicationError();
  expectDisconnected();
  ASSERT_TRUE(instrument().waitFor("unplugged"));
  ASSERT_EQ(instrument().control("fault none"), "");
  ASSERT_EQ(instrument().control("plug"), "");
  expectWorks();
  EXPECT_EQ(messages.seen.size(), 1U);
  EXPECT_EQ(settingsNow(), settings(1, 9600));
}

INSTANTIATE_TEST_SUITE_P(Table, SerialFaultPulledOut,
                         testing::Values("hangup-command=1", "hangup-byte=1", "hangup-byte=5"));

TEST_F(SerialFault, PulledOutWhileIdleIsToldAtOnceAndConnectsAgain) {
  startConnected();
  for (int time = 1; time <= 3; ++time) {
    messages.seen.clear();
    ASSERT_EQ(instrument().control("unplug"), "");
    ASSERT_TRUE(until([this] { return !messages.seen.empty(); }));
    turn();
    expectCommunicationError();
    expectDisconnected();
    ASSERT_EQ(instrument().control("plug"), "");
    expectWorks();
  }
}

TEST_F(SerialFault, PulledOutWhileDisconnectedIsNotTold) {
  startConnected();
  click("cmdBttn_0");
  ASSERT_EQ(instrument().control("unplug"), "");
  ASSERT_EQ(instrument().control("plug"), "");
  expectWorks();
  EXPECT_TRUE(messages.seen.empty());
}

TEST_F(SerialFault, PulledOutBeforeConnectingGivesTheQuestionAlone) {
  plugIn(1, 9600);
  start(1, 9600);
  ASSERT_EQ(instrument().control("unplug"), "");
  messages.answers = {QMessageBox::No};
  click("cmdBttn_0");
  EXPECT_EQ(messages.seen.size(), 1U);
  EXPECT_FALSE(program().connection.connected());
  ASSERT_EQ(instrument().control("plug"), "");
  expectWorks();
}

TEST_F(SerialFault, PulledOutOnDisconnectingIsToldOnce) {
  startConnected();
  ASSERT_EQ(instrument().control("fault hangup-command=1"), "");
  click("cmdBttn_0");
  EXPECT_LE(messages.seen.size(), 1U);
  expectDisconnected();
  ASSERT_EQ(instrument().control("fault none"), "");
  ASSERT_EQ(instrument().control("plug"), "");
  expectWorks();
}

TEST_F(SerialFault, APortThatAnotherProgramHasIsInUse) {
  plugIn(1, 9600);
  start(1, 9600);
  adapters::QtSerialPort other(
      gate, [this](int com) { return adapters::comDevice(com, folder.path().string(), {}); });
  ASSERT_EQ(other.open(1, {}).error, platform::SerialOpenError::kNone);
  messages.answers = {QMessageBox::No};
  click("cmdBttn_0");
  EXPECT_EQ(messages.seen.size(), 1U);
  EXPECT_FALSE(program().connection.connected());
  const std::string node = std::filesystem::canonical(portPath(1)).string();
  EXPECT_EQ(hint(), node + " is in use by another program");
  EXPECT_TRUE(find("StatusBar1_1")->toolTip().contains(QStringLiteral("Another program has opened")));
  other.close();
  expectWorks();
  EXPECT_EQ(hint(), "");
  EXPECT_EQ(settingsNow(), settings(1, 9600));
}

}  // namespace
}  // namespace vireon::tests
