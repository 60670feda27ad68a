#include <gtest/gtest.h>

#include "tests/link/serial_fixture.h"

namespace vireon::link {
namespace {

using tests::onLine;
using Texts = std::vector<std::string>;

class SerialFailure : public tests::SerialFixture {
 protected:
  void SetUp() override {
    connectSerial();
    sample();
  }
};

TEST_F(SerialFailure, ATimeOutIsOneMessageAndADisconnectedWindow) {
  silence();
  EXPECT_FALSE(connection.transKcmd("VDAup"));
  EXPECT_EQ(pump.timeOuts, 1U);
  EXPECT_EQ(pump.lastTimeOut, 800);
  expectOneTimeOutMessage();
  expectDisconnectedAndClosed();
  EXPECT_EQ(form.cmdBttn[0].caption(), "Connect");
  expectReconnects();
}

TEST_F(SerialFailure, ThePortIsClosedAndTheLinkIdleBeforeTheUserIsTold) {
  silence();
  messages.whileOpen = [this](const platform::Message&) {
    EXPECT_FALSE(serialPort.isOpen());
    EXPECT_FALSE(link.linkBusy);
    EXPECT_FALSE(link.cmdPending);
    EXPECT_FALSE(form.tmrCom.enabled());
  };
  send("DFN??");
  EXPECT_EQ(messages.count(), 1U);
}

TEST_F(SerialFailure, EveryFaultOfAnAnswerIsOneMessageAndTheNextConnectionWorks) {
  struct Row {
    const char* name;
    Texts chunks;
  };
  const Row rows[] = {
      {"no answer", {}},
      {"half an answer", {"\2dfn:0"}},
      {"an answer without its start", {"\6"}},
      {"602 bytes without an end", {"\2" + std::string(601, 'x')}},
      {"602 bytes in pieces", {"\2" + std::string(400, 'x'), std::string(201, 'x')}},
      {"noise of another rate", {"\xFE\x80\x1F", "\xF0"}},
      {"another control code", {onLine("\7")}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    messages.shown.clear();
    answer(row.chunks);
    send("DFN??");
    expectOneTimeOutMessage();
    expectDisconnectedAndClosed();
    expectReconnects();
  }
}

TEST_F(SerialFailure, AnAdapterPulledOutInAWaitIsOneMessageAtOnce) {
  silence();
  whileWaiting([this] {
    connection.transKcmd("VDBup");
    serialPort.pullOut();
  });
  send("DFN??");
  EXPECT_EQ(pump.timeOuts, 0U);
  EXPECT_EQ(serialPort.commands, Texts{"DFN??"});
  expectOneTimeOutMessage();
  expectDisconnectedAndClosed();
  expectReconnects();
}

TEST_F(SerialFailure, AnAdapterPulledOutInTheMiddleOfAnAnswerIsOneMessage) {
  answer({"\2dfn", ":00\3"});
  pump.atPump.push_back([] {});
  pump.atPump.push_back([this] { serialPort.pullOut(); });
  send("DFN??");
  EXPECT_TRUE(frames.empty());
  expectOneTimeOutMessage();
  expectDisconnectedAndClosed();
  expectReconnects();
}

TEST_F(SerialFailure, AnAdapterPulledOutWhileConnectedAndIdleIsToldAtOnce) {
  serialPort.pullOut();
  expectOneTimeOutMessage();
  expectDisconnectedAndClosed();
  EXPECT_TRUE(serialPort.commands.empty());
  expectReconnects();
}

TEST_F(SerialFailure, AnAdapterThatIsGoneBeforeTheNewsOfItIsOneMessage) {
  serialPort.close();
  EXPECT_FALSE(connection.transKcmd("VDAup"));
  EXPECT_EQ(messages.count(), 0U);
  serialPort.pullOut();
  expectOneTimeOutMessage();
  expectDisconnectedAndClosed();
}

TEST_F(SerialFailure, AnAdapterPulledOutWhileDisconnectedIsNoMessage) {
  connection.cmdBttn_Click(0);
  openPort();
  serialPort.pullOut();
  EXPECT_EQ(messages.count(), 0U);
  expectDisconnectedAndClosed();
  expectReconnects();
}

TEST_F(SerialFailure, AnAdapterPulledOutDuringTheLeaveTakingIsOneMessage) {
  silence();
  whileWaiting([this] { serialPort.pullOut(); });
  connection.cmdBttn_Click(0);
  expectOneTimeOutMessage();
  expectDisconnectedAndClosed();
  expectReconnects();
}

TEST_F(SerialFailure, AnAdapterPulledOutAndInAgainManyTimesIsOneMessageEach) {
  for (std::size_t turn = 1; turn <= 20; ++turn) {
    serialPort.pullOut();
    EXPECT_EQ(messages.count(), turn);
    expectDisconnectedAndClosed();
    expectReconnects();
  }
}

TEST_F(SerialFailure, APortThatTakesNoBytesIsOneMessage) {
  serialPort.refusesWrites = true;
  connection.transKcmd("VDAup");
  expectOneTimeOutMessage();
  expectDisconnectedAndClosed();
  serialPort.refusesWrites = false;
  expectReconnects();
}

TEST_F(SerialFailure, OddAnswersThatAreWholeAreNoFailure) {
  for (const Texts& chunks :
       {Texts{"\2df", "n:00\3"}, Texts{"\2dfn:00\3\2dfn:00\3"}, Texts{"\2dfn\2dfn:00\3"}}) {
    frames.clear();
    answer(chunks);
    EXPECT_TRUE(connection.trans_usb("DFN??"));
    EXPECT_EQ(frames, Texts{"dfn:00"});
  }
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_TRUE(connection.connected());
}

}  // namespace
}  // namespace vireon::link
