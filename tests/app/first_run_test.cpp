#include <gtest/gtest.h>

#include "tests/app/start_bench.h"

namespace vireon::app {
namespace {

using Texts = std::vector<std::string>;

class FirstRun : public tests::StartBench {};

TEST_F(FirstRun, AnInstrumentOnUsbIsFoundByEachProductIdAndWrittenDown) {
  struct Row {
    std::uint16_t productId;
    const char* model;
    const char* id;
    const char* tabs;
  };
  for (const Row& row : {Row{0xE001, "K7310", "-8191", "2"}, Row{0xE002, "K7210", "-8190", "1"},
                         Row{0xE003, "K7201", "-8189", "1"}, Row{0xE004, "K7900", "-8188", "1"}}) {
    SCOPED_TRACE(row.model);
    files.files.clear();
    hid.forget();
    plugUsb(row.productId, row.model);
    ASSERT_TRUE(program.Form_Load());
    const std::string model(row.model);
    EXPECT_EQ(file(), "[Caption]\r\nCaption=Vireon " + model + "\r\n[System ID]\r\nSystem ID=" + model +
                          "\r\n[ProductId]\r\nProductId=" + row.id + "\r\n[Tabs]\r\nTabs=" + row.tabs +
                          "\r\n[ComPort]\r\nComPort=0\r\n[BaudRate]\r\nBaudRate=\r\n");
    EXPECT_EQ(hid.commands, Texts{"SID??;SIM??"});
    EXPECT_EQ(form().caption(), "Vireon " + model);
    EXPECT_EQ(program.state.modelId, model);
    EXPECT_EQ(std::to_string(program.link.usbProductId), row.id);
    EXPECT_EQ(form().SSTab1.tabs(), std::stoi(row.tabs));
    EXPECT_EQ(panel(2), "USB(HID)");
  }
  EXPECT_TRUE(serialPort.attempts.empty());
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(FirstRun, TheKeysAreWrittenInTheirOrderAtOnce) {
  plugUsb();
  ASSERT_TRUE(program.Form_Load());
  EXPECT_EQ(files.replaces, 1U);
  std::size_t place = 0;
  for (const char* key : {"Caption", "System ID", "ProductId", "Tabs", "ComPort", "BaudRate"}) {
    const std::size_t next = file().find("[" + std::string(key) + "]\r\n", place);
    ASSERT_NE(next, std::string::npos) << key;
    place = next;
  }
}

TEST_F(FirstRun, WhereTheKeysCannotBeWrittenTheNextStartSearchesAgain) {
  plugUsb();
  files.replaceErrors = {{1, platform::FileReplace::kNoSpace}};
  ASSERT_TRUE(program.Form_Load());
  EXPECT_FALSE(fileThere());
  hid.forget();

  Program second(with(hid), "folder");
  ASSERT_TRUE(second.Form_Load());
  EXPECT_EQ(hid.commands, Texts{"SID??;SIM??"});
  EXPECT_EQ(second.link.usbProductId, -8191);
  EXPECT_TRUE(fileThere());
}

TEST_F(FirstRun, WhatCouldNotBeWrittenIsWrittenWholeWhereTheUserSavesItAtTheEnd) {
  plugSerial(3, 4800);
  files.replaceErrors = {{1, platform::FileReplace::kNoSpace}};
  ASSERT_TRUE(program.Form_Load());
  ASSERT_FALSE(fileThere());
  messages.answers = {platform::MessageAnswer::kYes};
  EXPECT_TRUE(program.requestClose());

  searchView.tried.clear();
  Program second(with(hid), "folder");
  ASSERT_TRUE(second.Form_Load());
  EXPECT_TRUE(searchView.tried.empty());
  EXPECT_EQ(second.form.caption(), "Vireon K7310");
  EXPECT_EQ(second.state.modelId, "K7310");
  EXPECT_EQ(second.form.SSTab1.tabs(), 2);
  EXPECT_EQ(second.form.StatusBar1.panel(2), "COM3:4800");
}

TEST_F(FirstRun, ASearchBeforeTheEndDoesNotChangeWhichInstrumentIsWrittenDown) {
  plugSerial(3, 4800);
  files.replaceErrors = {{1, platform::FileReplace::kNoSpace}};
  ASSERT_TRUE(program.Form_Load());
  plugSerial(2, 9600, "K7900");
  program.connection.serial().com_search();
  ASSERT_EQ(program.state.modelId, "K7900");
  messages.answers = {platform::MessageAnswer::kYes};
  EXPECT_TRUE(program.requestClose());

  Program second(with(hid), "folder");
  ASSERT_TRUE(second.Form_Load());
  EXPECT_EQ(second.form.caption(), "Vireon K7310");
  EXPECT_EQ(second.state.modelId, "K7310");
  EXPECT_EQ(second.form.SSTab1.tabs(), 2);
  EXPECT_EQ(second.form.StatusBar1.panel(2), "COM2:9600");
}

TEST_F(FirstRun, ASecondStartReadsWhatTheFirstOneWrote) {
  plugUsb(0xE004, "K7900");
  ASSERT_TRUE(program.Form_Load());
  const std::string written = file();
  hid.forget();
  searchView.tried.clear();

  Program second(with(hid), "folder");
  ASSERT_TRUE(second.Form_Load());

  EXPECT_EQ(second.form.caption(), "Vireon K7900");
  EXPECT_EQ(second.state.modelId, "K7900");
  EXPECT_EQ(second.link.usbProductId, -8188);
  EXPECT_EQ(second.form.SSTab1.tabs(), 1);
  EXPECT_EQ(second.form.StatusBar1.panel(2), "USB(HID)");
  EXPECT_TRUE(hid.commands.empty());
  EXPECT_EQ(file(), written);
}

TEST_F(FirstRun, WithoutUsbAnInstrumentOnASerialPortIsFound) {
  plugSerial(3, 4800, "K7210");
  ASSERT_TRUE(program.Form_Load());
  EXPECT_EQ(serialPort.commands.back(), "SID??;SIM??");
  EXPECT_EQ(serialPort.commands.size(), 11U);
  EXPECT_EQ(file(),
            "[Caption]\r\nCaption=Vireon K7210\r\n[System ID]\r\nSystem ID=K7210\r\n"
            "[ProductId]\r\nProductId=-8188\r\n[Tabs]\r\nTabs=1\r\n[ComPort]\r\nComPort=3\r\n"
            "[BaudRate]\r\nBaudRate=4800\r\n");
  EXPECT_EQ(panel(2), "COM3:4800");
  EXPECT_EQ(panel(1), "");
  EXPECT_EQ(program.link.comWait, 1600);
  EXPECT_FALSE(program.connection.connected());
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(searchView.depth, 0);
}

TEST_F(FirstRun, TheIdentityHasTheTimeOfTheRateFound) {
  plugSerial(1, 1200);
  int interval = 0;
  const auto instrument = serialPort.instrument;
  serialPort.instrument = [&, instrument](int com, int rate, const std::string& command) {
    interval = form().tmrCom.interval();
    return instrument(com, rate, command);
  };
  ASSERT_TRUE(program.Form_Load());
  EXPECT_EQ(interval, 3200);
}

TEST_F(FirstRun, NoInstrumentAnywhereIsOneMessageAndTheEnd) {
  EXPECT_FALSE(program.Form_Load());
  expectNotFound(kCheckCommunicationCable);
  EXPECT_EQ(serialPort.attempts.size(), 16U);
  EXPECT_EQ(serialPort.commands, Texts(16, "SIM??"));
}

TEST_F(FirstRun, AUsbInstrumentThatIsSilentIsOneMessageAndTheEnd) {
  plugUsb();
  hid.answerAll("");
  EXPECT_FALSE(program.Form_Load());
  expectNotFound(kCheckUsbCable);
  EXPECT_TRUE(serialPort.attempts.empty());
}

TEST_F(FirstRun, AUsbInstrumentThatGoesDuringTheQueryIsOneMessageAndTheEnd) {
  for (const std::size_t transfer : {1U, 2U}) {
    messages.shown.clear();
    hid.forget();
    plugUsb();
    hid.plug();
    hid.unplugAtTransfer = transfer;
    EXPECT_FALSE(program.Form_Load());
    expectNotFound(kCheckUsbCable);
  }
}

TEST_F(FirstRun, AnUnknownModelIsOneMessageAndTheNextStartSearchesAgain) {
  for (const char* model : {"K7999", "K731", "X7310", "", "K73100"}) {
    SCOPED_TRACE(model);
    messages.shown.clear();
    plugUsb(0xE001, model);
    EXPECT_FALSE(program.Form_Load());
    expectNotFound(kCheckCommunicationCable);
  }
  plugUsb();
  EXPECT_TRUE(program.Form_Load());
  EXPECT_TRUE(fileThere());
}

TEST_F(FirstRun, AnUnknownModelOnASerialPortIsOneMessage) {
  plugSerial(2, 9600, "K7999");
  EXPECT_FALSE(program.Form_Load());
  expectNotFound(kCheckCommunicationCable);
}

TEST_F(FirstRun, BlanksAroundTheModelDoNotCount) {
  plugUsb(0xE001, "K7310 ");
  EXPECT_TRUE(program.Form_Load());
  EXPECT_EQ(program.state.modelId, "K7310");
}

TEST_F(FirstRun, AnAdapterPulledOutDuringTheIdentityQueryIsOneMessage) {
  plugSerial(1, 9600);
  pump.happenings = {[this] { serialPort.deliver(); }, [this] { serialPort.pullOut(); }};
  EXPECT_TRUE(program.Form_Load()) << "the search has told the model";
  ASSERT_EQ(messages.count(), 1U);
  EXPECT_EQ(messages.lastText(), "Device Unavailable or Communication Error");
  EXPECT_FALSE(program.connection.connected());
  EXPECT_FALSE(serialPort.isOpen());
  EXPECT_EQ(panel(2), "COM1:9600");
}

TEST_F(FirstRun, AnAdapterOfAnUnknownModelPulledOutDuringTheIdentityQueryIsOneMessageAndTheEnd) {
  plugSerial(1, 9600, "K7999");
  pump.happenings = {[this] { serialPort.deliver(); }, [this] { serialPort.pullOut(); }};
  EXPECT_FALSE(program.Form_Load());
  EXPECT_EQ(messages.count(), 1U);
  expectNothingLeft();
}

TEST_F(FirstRun, TheSearchIsOnTheScreenFromTheFirstQuestionToTheLast) {
  int depthAtMessage = 0;
  messages.whileOpen = [&](const platform::Message&) { depthAtMessage = searchView.depth; };
  EXPECT_FALSE(program.Form_Load());
  EXPECT_EQ(depthAtMessage, 1);
  EXPECT_EQ(searchView.depth, 0);
  EXPECT_EQ(searchView.tried.size(), 16U);

  plugUsb();
  int depthAtQuery = 0;
  hid.instrument = [&](const std::string&) {
    depthAtQuery = searchView.depth;
    return tests::framed("sim:K7310");
  };
  EXPECT_TRUE(program.Form_Load());
  EXPECT_EQ(depthAtQuery, 1);
  EXPECT_EQ(searchView.depth, 0);
}

TEST_F(FirstRun, AHidNodeThatRefusesIsToldInTheSearchAndBehindTheOneMessage) {
  hid.nodes = {{"/dev/hidraw7", 0x10C4, 0xE003}};
  hid.openErrors[1] = platform::HidOpenError::kNoPermission;
  EXPECT_FALSE(program.Form_Load());
  expectNotFound(kCheckCommunicationCable);
  const std::string line = "No permission for /dev/hidraw7: a udev rule gives it";
  EXPECT_EQ(searchView.advised, Texts{line});
  EXPECT_EQ(panel(1), line);
  EXPECT_EQ(form().StatusBar1.toolTip(1), searchView.advisedTexts.at(0));
  EXPECT_NE(searchView.advisedTexts.at(0).find("/etc/udev/rules.d/70-vireon.rules"), std::string::npos);
}

TEST_F(FirstRun, ASerialPortThatRefusesIsToldInTheSearchAndBehindTheOneMessage) {
  serialPort.refusals[2] = {platform::SerialOpenError::kNoPermission, "/dev/ttyUSB0", "dialout", false};
  EXPECT_FALSE(program.Form_Load());
  expectNotFound(kCheckCommunicationCable);
  EXPECT_EQ(searchView.advised, Texts{"No permission for /dev/ttyUSB0: join group dialout"});
  EXPECT_EQ(panel(1), "No permission for /dev/ttyUSB0: join group dialout");
}

}  // namespace
}  // namespace vireon::app
