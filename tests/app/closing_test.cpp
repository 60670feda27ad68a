#include <gtest/gtest.h>

#include "tests/app/start_bench.h"

namespace vireon::app {
namespace {

using platform::MessageAnswer;
using tests::onLine;
using Texts = std::vector<std::string>;

constexpr const char* kUsbSettings =
    "[ProductId]\r\nProductId=-8191\r\n[Tabs]\r\nTabs=2\r\n[ComPort]\r\nComPort=0\r\n";

class Closing : public tests::StartBench {
 protected:
  Closing() {
    program.closeLater = [this] { ++closesLater; };
    program.connection.unloadForm = [this] { closed = program.requestClose(); };
  }

  void startSerial() {
    writeSerialSettings();
    ASSERT_TRUE(program.Form_Load());
  }

  void startUsb() {
    file() = kUsbSettings;
    plugUsb();
    ASSERT_TRUE(program.Form_Load());
  }

  void connectSerial() {
    startSerial();
    serialPort.instrument = [](int, int, const std::string&) { return Texts{onLine("\6")}; };
    form().cmdBttn[0].click();
    ASSERT_TRUE(program.connection.connected());
    serialPort.commands.clear();
  }

  void expectAsked() {
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastTitle(), "Exit");
    EXPECT_EQ(messages.lastText(), "     Save as Default ?");
    EXPECT_EQ(messages.shown.back().icon, platform::MessageIcon::kNone);
    EXPECT_EQ(messages.shown.back().buttons, platform::MessageButtons::kYesNo);
  }

  int closesLater = 0;
  bool closed = false;
};

TEST_F(Closing, OnASerialLinkItIsAlwaysAskedAndNoWritesNothing) {
  startSerial();
  const std::string before = file();
  program.link.comPort = "3";
  messages.answers = {MessageAnswer::kNo};
  EXPECT_TRUE(program.requestClose());
  expectAsked();
  EXPECT_EQ(file(), before);
  EXPECT_EQ(files.replaces, 0U);
  EXPECT_TRUE(serialPort.attempts.empty());
}

TEST_F(Closing, YesWritesPortAndRateAndKeepsEveryOtherByte) {
  const std::string head =
      "; by hand \n[ComPort]\n comport = 1\t\n# odd\r\n[Else]\rx=1\n\n[BaudRate]\nBAUDRATE=";
  const std::string tail = "\n[Tabs]\nTabs=2\n\xE4\xF6;end without a line end";
  file() = head + "9600" + tail;
  ASSERT_TRUE(program.Form_Load());
  program.link.comPort = "4";
  program.link.baudRate = "1200";
  messages.answers = {MessageAnswer::kYes};
  EXPECT_TRUE(program.requestClose());
  std::string expected = head;
  expected.replace(expected.find(" comport = 1\t"), 13, " comport=4");
  EXPECT_EQ(file(), expected + "1200" + tail);
}

TEST_F(Closing, YesWritesThePairThatASearchHasFound) {
  startSerial();
  plugSerial(3, 4800);
  messages.answers = {MessageAnswer::kYes, MessageAnswer::kYes};
  form().cmdBttn[0].click();
  ASSERT_TRUE(program.connection.connected());
  EXPECT_TRUE(program.requestClose());
  EXPECT_NE(file().find("ComPort=3\r\n"), std::string::npos);
  EXPECT_NE(file().find("BaudRate=4800\r\n"), std::string::npos);
}

TEST_F(Closing, OnUsbNothingIsAsked) {
  startUsb();
  EXPECT_TRUE(program.requestClose());
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(file(), kUsbSettings);
  EXPECT_EQ(hid.opens, 0U);
}

TEST_F(Closing, ItIsAskedWhereThePortIsANumberOtherThanZero) {
  struct Row {
    const char* port;
    bool asked;
  };
  for (const Row& row :
       {Row{"1", true}, Row{"4", true}, Row{"17", true}, Row{"-1", true}, Row{" 2x", true}, Row{"abc", false},
        Row{"", false}, Row{"0", false}, Row{"00", false}, Row{"0x1", false}}) {
    messages.shown.clear();
    writeSerialSettings(row.port);
    ASSERT_TRUE(program.Form_Load());
    EXPECT_TRUE(program.requestClose());
    EXPECT_EQ(messages.count(), row.asked ? 1U : 0U) << row.port;
  }
}

TEST_F(Closing, ASettingsFileThatCannotBeWrittenIsKeptInSilence) {
  startSerial();
  const std::string before = file();
  program.link.comPort = "3";
  program.link.baudRate = "1200";
  for (const auto error : {platform::FileReplace::kNoPermission, platform::FileReplace::kNoSpace,
                           platform::FileReplace::kNoFolder, platform::FileReplace::kFailed}) {
    messages.shown.clear();
    messages.answers = {MessageAnswer::kYes};
    files.replaceErrors = {{files.replaces + 1, error}, {files.replaces + 2, error}};
    EXPECT_TRUE(program.requestClose());
    expectAsked();
    EXPECT_EQ(file(), before);
  }
}

TEST_F(Closing, AFileThatVanishedIsMadeAnewWithTheTwoKeys) {
  startSerial();
  files.files.clear();
  messages.answers = {MessageAnswer::kYes};
  EXPECT_TRUE(program.requestClose());
  EXPECT_EQ(file(), "[ComPort]\r\nComPort=1\r\n[BaudRate]\r\nBaudRate=9600\r\n");
}

TEST_F(Closing, OnUsbLeaveIsTakenOnceOfAnOpenDevice) {
  startUsb();
  form().cmdBttn[0].click();
  hid.commands.clear();
  EXPECT_TRUE(program.requestClose());
  EXPECT_EQ(hid.commands, Texts{"GTL"});
  EXPECT_EQ(hid.openHandles(), 0U);
  program.Form_Unload();
  EXPECT_EQ(hid.commands, Texts{"GTL"});
}

TEST_F(Closing, WhatComesAfterTheLeaveOpensNothingAndSendsNothing) {
  startUsb();
  form().cmdBttn[0].click();
  form().cmdStart.click();
  EXPECT_TRUE(program.requestClose());
  hid.commands.clear();
  const auto opens = hid.opens;
  form().tmrInt.tick();
  form().cmdVu[0].click();
  form().cmdBttn[0].click();
  form().cmdBttn[0].click();
  EXPECT_EQ(hid.commands, Texts{});
  EXPECT_EQ(hid.opens, opens);
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(Closing, WhatComesAfterTheEndOnASerialLinkOpensNothing) {
  connectSerial();
  EXPECT_TRUE(program.requestClose());
  serialPort.attempts.clear();
  form().cmdVu[0].click();
  form().cmdBttn[0].click();
  form().cmdBttn[0].click();
  EXPECT_TRUE(serialPort.commands.empty());
  EXPECT_TRUE(serialPort.attempts.empty());
}

TEST_F(Closing, TheExitButtonOnUsbTakesLeaveOnceAndCloses) {
  startUsb();
  form().cmdBttn[0].click();
  hid.commands.clear();
  form().cmdBttn[1].click();
  EXPECT_TRUE(closed);
  EXPECT_EQ(hid.commands, Texts{"GTL"});
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(Closing, OnASerialLinkNoLeaveIsTaken) {
  connectSerial();
  EXPECT_TRUE(program.requestClose());
  form().cmdBttn[1].click();
  EXPECT_TRUE(closed);
  EXPECT_TRUE(serialPort.commands.empty());
}

TEST_F(Closing, DuringASerialWaitThatIsEndedFirstWithoutAMessage) {
  connectSerial();
  silenceSerial();
  pump.happenings.push_back([this] {
    EXPECT_FALSE(program.requestClose());
    EXPECT_FALSE(program.requestClose()) << "asked again meanwhile";
    EXPECT_EQ(closesLater, 0);
  });
  program.connection.transKcmd("VDAup");
  EXPECT_EQ(pump.timeOuts, 0U);
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(closesLater, 1);

  EXPECT_TRUE(program.requestClose());
  expectAsked();
  EXPECT_EQ(closesLater, 1);
}

TEST_F(Closing, TheExitButtonDuringASerialWaitEndsItFirst) {
  connectSerial();
  silenceSerial();
  closed = true;
  pump.happenings.push_back([this] { form().cmdBttn[1].click(); });
  program.connection.transKcmd("VDAup");
  EXPECT_FALSE(closed);
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(closesLater, 1);
}

TEST_F(Closing, DuringTheProbeOfConnectingThereIsNoPrompt) {
  startSerial();
  pump.happenings.push_back([this] { EXPECT_FALSE(program.requestClose()); });
  form().cmdBttn[0].click();
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(closesLater, 1);
  EXPECT_FALSE(program.connection.connected());
  EXPECT_FALSE(serialPort.isOpen());
}

TEST_F(Closing, DuringASearchThatIsEndedFirstWithoutAnotherPrompt) {
  startSerial();
  messages.answers = {MessageAnswer::kYes};
  searchView.whileTrying = [this] {
    if (searchView.tried.size() == 2) {
      EXPECT_FALSE(program.requestClose());
    }
  };
  form().cmdBttn[0].click();
  EXPECT_EQ(searchView.tried.size(), 2U);
  EXPECT_EQ(messages.count(), 1U) << "the prompt that began the search";
  EXPECT_EQ(closesLater, 1);
  EXPECT_EQ(searchView.depth, 0);
}

TEST_F(Closing, CancellingASearchOfConnectingDoesNotClose) {
  startSerial();
  messages.answers = {MessageAnswer::kYes};
  pump.happenings = {[this] { form().tmrCom.tick(); }, [this] { searchView.onCancel(); }};
  form().cmdBttn[0].click();
  EXPECT_EQ(searchView.tried.size(), 1U);
  EXPECT_EQ(messages.count(), 1U);
  EXPECT_EQ(closesLater, 0);
}

TEST_F(Closing, DuringAUsbExchangeItWaitsForTheEnd) {
  startUsb();
  hid.instrument = [this](const std::string&) {
    EXPECT_FALSE(program.requestClose());
    EXPECT_EQ(closesLater, 0);
    return tests::framed("\6");
  };
  program.connection.transKcmd("VDAup");
  EXPECT_EQ(hid.commands, Texts{"VDAup"});
  EXPECT_EQ(closesLater, 1);
  EXPECT_EQ(messages.count(), 0U);

  hid.answerAll(tests::framed("\6"));
  EXPECT_TRUE(program.requestClose());
  EXPECT_EQ(hid.commands, (Texts{"VDAup", "GTL"}));
}

TEST_F(Closing, NobodyNeedsToCloseLater) {
  program.closeLater = nullptr;
  connectSerial();
  pump.happenings.push_back([this] { EXPECT_FALSE(program.requestClose()); });
  program.connection.transKcmd("VDAup");
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_TRUE(program.requestClose());
}

TEST_F(Closing, AfterItsEndNoSearchReachesTheProgram) {
  {
    Program other(with(hid), "folder");
    EXPECT_TRUE(searchView.onCancel);
  }
  EXPECT_FALSE(searchView.onCancel);
}

}  // namespace
}  // namespace vireon::app
