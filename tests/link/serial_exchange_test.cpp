#include <gtest/gtest.h>

#include "tests/link/lamp_view.h"
#include "tests/link/serial_fixture.h"

namespace vireon::link {
namespace {

using tests::kGreenLamp;
using tests::kRedLamp;
using tests::kWhiteLamp;
using tests::Lamps;
using tests::onLine;
using Texts = std::vector<std::string>;

class SerialExchange : public tests::SerialFixture {
 protected:
  void SetUp() override { openPort(); }
};

TEST_F(SerialExchange, TheFrameLeavesInOneWrite) {
  send("VDAup;VDA??");
  EXPECT_EQ(serialPort.written, Texts{"\2VDAup;VDA??\3"});
}

TEST_F(SerialExchange, AnEmptyCommandIsItsTwoMarks) {
  send("");
  EXPECT_EQ(serialPort.written, Texts{"\2\3"});
}

TEST_F(SerialExchange, TheLampsGoRedThenGreenThenWhite) {
  tests::LampView view(form);
  form.setView(&view);
  answer({onLine("dfn:00")});
  send("DFN??");
  form.setView(nullptr);
  EXPECT_EQ(view.painted, (std::vector<Lamps>{{kRedLamp, kWhiteLamp},
                                              {kWhiteLamp, kWhiteLamp},
                                              {kWhiteLamp, kGreenLamp},
                                              {kWhiteLamp, kWhiteLamp}}));
}

TEST_F(SerialExchange, TheReceiveLampStaysGreenBetweenThePiecesOfAnAnswer) {
  answer({"\2df", "n:00\3"});
  std::vector<form::Color> seen;
  whileWaiting([this] { serialPort.deliver(); });
  whileWaiting([&] { seen = {form.Txled[0].fillColor(), form.Txled[1].fillColor()}; });
  send("DFN??");
  EXPECT_EQ(seen, (std::vector{form::kWhite, form::kGreen}));
  EXPECT_EQ(form.Txled[1].fillColor(), form::kWhite);
}

TEST_F(SerialExchange, TheTimeOutIsLoadedBeforeEverySend) {
  struct Row {
    int comWait;
    int interval;
  };
  for (const Row& row :
       {Row{800, 800}, Row{500, 500}, Row{1, 1}, Row{3200, 3200}, Row{0, 800}, Row{-1, 800}}) {
    link.comWait = row.comWait;
    whileWaiting([&] {
      EXPECT_EQ(form.tmrCom.interval(), row.interval) << row.comWait;
      EXPECT_TRUE(form.tmrCom.enabled());
    });
    send("DFN??");
    EXPECT_FALSE(form.tmrCom.enabled());
  }
}

TEST_F(SerialExchange, TheLinkIsBusyWhileItWaitsAndTheOutcomeIsCleared) {
  link.rxTimeout = link.rxDone = link.rxEnq = true;
  whileWaiting([this] {
    EXPECT_TRUE(link.linkBusy);
    EXPECT_FALSE(link.rxTimeout || link.rxDone || link.rxEnq);
    EXPECT_EQ(form.Txled[0].fillColor(), form::kRed);
  });
  send("DFN??");
  EXPECT_FALSE(link.linkBusy);
}

TEST_F(SerialExchange, TheOutcomeIsThatOfTheAnswer) {
  struct Row {
    const char* name;
    std::string chunk;
    bool done, enq, timedOut;
    Texts frames;
  };
  const Row rows[] = {
      {"accepted", "\2\6\3", true, false, false, {}},
      {"refused", "\2\5\3", false, true, false, {}},
      {"another code", "\2\7\3", false, false, true, {}},
      {"a code that is a letter", "\2a\3", false, false, true, {}},
      {"two characters", "\2ab\3", true, false, false, {"ab"}},
      {"a text", "\2dfn:00,vda:03\3", true, false, false, {"dfn:00,vda:03"}},
      {"a text that starts with the code", std::string("\2\6b\3"), true, false, false, {"\6b"}},
      {"no text", "\2\3", true, false, false, {""}},
      {"half an answer", "\2dfn:0", false, false, true, {}},
      {"the end of an answer alone", "n:00\3", true, false, false, {":00"}},
      {"two answers in one piece", "\2dfn:00\3\2vda:03\3", true, false, false, {"dfn:00"}},
      {"bytes behind the end", "\2\6\3\5\3", true, false, false, {}},
      {"a start in the middle", "\2dfn:\2vda:03\3", true, false, false, {"vda:03"}},
      {"noise before the start", "xyz\2vda:03\3", true, false, false, {"vda:03"}},
      {"a start in a control answer", "\2\5\2\6\3", true, false, false, {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    openPort();
    frames.clear();
    messages.shown.clear();
    state.rxLen = 0;
    answer({row.chunk});
    send("DFN??");
    EXPECT_EQ(link.rxDone, row.done);
    EXPECT_EQ(link.rxEnq, row.enq);
    EXPECT_EQ(link.rxTimeout, row.timedOut);
    EXPECT_EQ(frames, row.frames);
    EXPECT_EQ(messages.count(), row.timedOut ? 1U : 0U);
    EXPECT_FALSE(link.linkBusy);
    EXPECT_FALSE(form.tmrCom.enabled());
  }
}

TEST_F(SerialExchange, AControlAnswerTouchesNothingElse) {
  for (const char* code : {"\5", "\6"}) {
    state.rxHold = state.ackSeen = state.enqSeen = false;
    answer({onLine(code)});
    send("VDAup");
    EXPECT_FALSE(state.rxHold || state.ackSeen || state.enqSeen);
    EXPECT_TRUE(frames.empty());
  }
}

TEST_F(SerialExchange, AnotherControlCodeNeitherStopsNorRestartsTheTimeOut) {
  answer({});
  whileWaiting([this] { serialPort.receive(onLine("\7")); });
  whileWaiting([this] {
    EXPECT_TRUE(form.tmrCom.enabled());
    EXPECT_EQ(form.tmrCom.interval(), 800);
    EXPECT_EQ(pump.timeOuts, 0U);
  });
  send("DFN??");
  EXPECT_EQ(pump.timeOuts, 1U);
  expectOneTimeOutMessage();
}

TEST_F(SerialExchange, AfterAnotherControlCodeTheAnswerStillCounts) {
  answer({onLine("\7"), onLine("\6")});
  send("DFN??");
  EXPECT_TRUE(link.rxDone);
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(SerialExchange, TheTextIsHandedOverWithItsLengthAndTheFrameStays) {
  int length = 0;
  connection.onFrame([&] { length = state.rxLen; });
  answer({onLine("dfn:00")});
  send("DFN??");
  EXPECT_EQ(length, 6);
  EXPECT_EQ(state.rxLen, 8);
  EXPECT_EQ(state.rxBuf[0], 2);
  EXPECT_EQ(state.rxBuf[7], 3);
}

TEST_F(SerialExchange, TheAnswerIsHandedOverBeforeItCountsAsReceived) {
  connection.onFrame([this] {
    EXPECT_FALSE(link.rxDone);
    EXPECT_TRUE(link.linkBusy);
    EXPECT_FALSE(form.tmrCom.enabled());
    EXPECT_EQ(form.Txled[1].fillColor(), form::kWhite);
  });
  answer({onLine("dfn:00")});
  send("DFN??");
  EXPECT_TRUE(link.rxDone);
}

TEST_F(SerialExchange, AnAnswerMayBeSplitAtEveryByte) {
  for (const std::string& whole : {onLine("dfn:00,vda:03"), onLine("ab"), onLine("\6"), onLine("\5")}) {
    answer({whole});
    frames.clear();
    send("DFN??");
    const auto expected = std::tuple(link.rxDone, link.rxEnq, frames);
    for (std::size_t at = 1; at < whole.size(); ++at) {
      frames.clear();
      answer({whole.substr(0, at), whole.substr(at)});
      send("DFN??");
      EXPECT_EQ(std::tuple(link.rxDone, link.rxEnq, frames), expected) << at;
    }
    frames.clear();
    Texts bytes;
    for (const char byte : whole) {
      bytes.emplace_back(1, byte);
    }
    answer(bytes);
    send("DFN??");
    EXPECT_EQ(std::tuple(link.rxDone, link.rxEnq, frames), expected) << "byte by byte";
  }
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(SerialExchange, TheLongestAnswerFillsTheBuffer) {
  const std::string text(599, 'x');
  answer({onLine(text)});
  send("DRS??");
  EXPECT_EQ(frames, Texts{text});
}

TEST_F(SerialExchange, AnAnswerThatIsTooLongIsLostAndTheNextOneIsTaken) {
  for (const Texts& chunks : {Texts{onLine(std::string(600, 'x'))}, Texts{"\2" + std::string(601, 'x')},
                              Texts{"\2" + std::string(300, 'x'), std::string(301, 'x'), "more\3"},
                              Texts{std::string(1200, 'x')}}) {
    openPort();
    messages.shown.clear();
    answer(chunks);
    send("DRS??");
    EXPECT_TRUE(link.rxTimeout);
    EXPECT_TRUE(frames.empty());
    expectOneTimeOutMessage();
    openPort();
    expectExchangeWorks();
    frames.clear();
  }
}

TEST_F(SerialExchange, AWriteThatIsRefusedTimesOutAtOnce) {
  serialPort.refusesWrites = true;
  send("DFN??");
  EXPECT_TRUE(link.rxTimeout);
  EXPECT_EQ(pump.waits, 0U);
  EXPECT_FALSE(link.linkBusy);
  EXPECT_FALSE(form.tmrCom.enabled());
  expectOneTimeOutMessage();
  expectDisconnectedAndClosed();
}

TEST_F(SerialExchange, APortThatIsNotOpenSendsNothingAndCountsAsTimedOut) {
  connection.serial().Mcom.PortOpen(false);
  link.cmdPending = true;
  link.pendingCmd = "VDAup";
  send("DFN??");
  EXPECT_TRUE(serialPort.written.empty());
  EXPECT_TRUE(link.rxTimeout);
  EXPECT_FALSE(link.linkBusy);
  EXPECT_FALSE(link.cmdPending);
  EXPECT_EQ(pump.waits, 0U);
  EXPECT_FALSE(form.tmrCom.enabled());
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(SerialExchange, OpeningAPortThatRefusesIsATimeOutWithoutAMessage) {
  serialPort.refusals[1] = {platform::SerialOpenError::kInUse, "/dev/ttyS0", {}, false};
  connection.serial().com_open();
  EXPECT_TRUE(link.rxTimeout);
  EXPECT_FALSE(serialPort.isOpen());
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(SerialExchange, APortOrRateThatThereIsNotDoesNotOpen) {
  struct Row {
    const char* port;
    const char* rate;
  };
  for (const Row& row :
       {Row{"", "9600"}, Row{"0", "9600"}, Row{"17", "9600"}, Row{"-1", "9600"}, Row{"abc", "9600"},
        Row{"99999", "9600"}, Row{"99999999999", "9600"}, Row{"1", ""}, Row{"1", "fast"}, Row{"1", "0"}}) {
    link.rxTimeout = false;
    link.comPort = row.port;
    link.baudRate = row.rate;
    connection.serial().com_open();
    EXPECT_TRUE(link.rxTimeout) << row.port << ' ' << row.rate;
    EXPECT_FALSE(serialPort.isOpen());
  }
  EXPECT_EQ(serialPort.attempts.size(), 1U);
}

}  // namespace
}  // namespace vireon::link
