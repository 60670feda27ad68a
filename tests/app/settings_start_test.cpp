#include <gtest/gtest.h>

#include <algorithm>

#include "tests/app/start_bench.h"

namespace vireon::app {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kUsbSettings =
    "[Caption]\r\nCaption=My instrument\r\n[System ID]\r\nSystem "
    "ID=K7210\r\n[ProductId]\r\nProductId=-8190\r\n"
    "[Tabs]\r\nTabs=1\r\n[ComPort]\r\nComPort=0\r\n[BaudRate]\r\nBaudRate=\r\n";

// A start with settings in a file.
class SettingsStart : public tests::StartBench {
 protected:
  void start(const std::string& text) {
    file() = text;
    ASSERT_TRUE(program.Form_Load());
    expectLinksUntouched();
    EXPECT_EQ(messages.count(), 0U);
    EXPECT_EQ(files.replaces, 0U);
    EXPECT_EQ(file(), text);
    EXPECT_TRUE(searchView.tried.empty());
    EXPECT_FALSE(program.connection.connected());
  }
};

TEST_F(SettingsStart, NothingIsSentAndTheValuesAreTaken) {
  plugUsb();
  start(kUsbSettings);
  EXPECT_EQ(form().caption(), "My instrument");
  EXPECT_EQ(program.state.modelId, "K7210");
  EXPECT_EQ(program.link.usbProductId, -8190);
  EXPECT_EQ(form().SSTab1.tabs(), 1);
  EXPECT_FALSE(form().cmdClock.visible());
  EXPECT_EQ(program.link.comPort, "0");
  EXPECT_EQ(program.link.baudRate, "");
  EXPECT_EQ(panel(2), "USB(HID)");
}

TEST_F(SettingsStart, OnUsbTheFirstExchangeOpensTheDevice) {
  plugUsb(0xE002, "K7210");
  start(kUsbSettings);
  form().cmdBttn[0].click();
  EXPECT_TRUE(program.connection.connected());
  EXPECT_EQ(hid.commands, Texts{"DFN??"});
}

TEST_F(SettingsStart, AFileOfAnotherModelIsTakenAsItIs) {
  plugUsb(0xE001, "K7310");
  start(kUsbSettings);
  EXPECT_EQ(program.state.modelId, "K7210");
  form().cmdBttn[0].click();
  EXPECT_FALSE(program.connection.connected());
  EXPECT_EQ(messages.lastTitle(), "Connection Error");
}

TEST_F(SettingsStart, AFailureBehindTheStartIsTold) {
  start(kUsbSettings);
  form().cmdBttn[0].click();
  EXPECT_EQ(messages.count(), 1U);
}

TEST_F(SettingsStart, ASerialLinkHasItsPortRateAndWaitingTime) {
  struct Row {
    const char* rate;
    int comWait;
  };
  for (const Row& row : {Row{"1200", 3200}, Row{"2400", 2400}, Row{"4800", 1600}, Row{"9600", 800},
                         Row{"", 0}, Row{"300", 0}}) {
    writeSerialSettings("2", row.rate);
    start(file());
    EXPECT_EQ(program.link.comWait, row.comWait);
    EXPECT_EQ(panel(2), std::string("COM2:") + row.rate);
    EXPECT_FALSE(program.link.onUsb());
  }
}

TEST_F(SettingsStart, AnyTabsButTwoAreOne) {
  struct Row {
    const char* value;
    int tabs;
  };
  for (const Row& row : {Row{"2", 2}, Row{"1", 1}, Row{"", 1}, Row{"0", 1}, Row{"3", 1}, Row{"-2", 1},
                         Row{"20", 1}, Row{"two", 1}, Row{" 2 ", 2}}) {
    Program other(with(hid), "folder");
    file() = std::string("[Tabs]\r\nTabs=") + row.value + "\r\n";
    ASSERT_TRUE(other.Form_Load());
    EXPECT_EQ(other.form.SSTab1.tabs(), row.tabs) << row.value;
    EXPECT_EQ(other.form.cmdClock.visible(), row.tabs == 2) << row.value;
  }
}

TEST_F(SettingsStart, TheProductIdIsTheNumberBeforeAnyOtherText) {
  struct Row {
    const char* value;
    std::int16_t id;
  };
  for (const Row& row : {Row{"-8191", -8191}, Row{"57345", -8191}, Row{"57348", -8188}, Row{" -8190 ", -8190},
                         Row{"-8189x", -8189}, Row{"", 0}, Row{"x", 0}}) {
    start(std::string("[ProductId]\r\nProductId=") + row.value + "\r\n");
    EXPECT_EQ(program.link.usbProductId, row.id) << row.value;
  }
}

TEST_F(SettingsStart, MissingKeysAreEmptyAndNothingIsRepaired) {
  for (const char* text : {"", "\r\n", "; nothing\r\n", "[Other]\r\nComPort=0\r\n", "ComPort=0\r\n",
                           "[Caption]\r\n[Tabs]\r\n", "\xFF\xFE"}) {
    start(text);
    EXPECT_EQ(form().caption(), "");
    EXPECT_EQ(program.state.modelId, "");
    EXPECT_EQ(program.link.usbProductId, 0);
    EXPECT_EQ(form().SSTab1.tabs(), 1);
    EXPECT_EQ(program.link.comPort, "");
    EXPECT_EQ(program.link.baudRate, "");
    EXPECT_EQ(panel(2), "COM:");
  }
}

TEST_F(SettingsStart, OddCaseSpacingAndLineEndsAreRead) {
  start("; kept by hand\n[comport]\n  comport =  3 \n\n[BAUDRATE]\nBaudRate\t= '4800'\n[tabs]\nTABS=2\n");
  EXPECT_EQ(panel(2), "COM3:4800");
  EXPECT_EQ(form().SSTab1.tabs(), 2);
}

TEST_F(SettingsStart, TenMegabytesOfJunkDoNoHarm) {
  std::string junk;
  junk.reserve(10U << 20);
  for (std::uint32_t state = 1; junk.size() < (10U << 20);) {
    state = state * 1664525 + 1013904223;
    junk += static_cast<char>(state >> 24);
  }
  file() = junk;
  EXPECT_TRUE(program.Form_Load());
  EXPECT_EQ(panel(2), "COM:");

  start(std::string(10U << 20, 'x') + "\r\n[ComPort]\r\nComPort=2\r\n[BaudRate]\r\nBaudRate=2400\r\n");
  EXPECT_EQ(panel(2), "COM2:2400");
}

TEST_F(SettingsStart, AFileThatVanishesBehindTheLookCountsAsEmpty) {
  file() = kUsbSettings;
  files.vanishAtRead = 1;
  EXPECT_TRUE(program.Form_Load());
  EXPECT_EQ(panel(2), "COM:");
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_FALSE(fileThere());
  expectLinksUntouched();
}

TEST_F(SettingsStart, AFileThatMayNotBeReadCountsAsEmptyAndStays) {
  file() = kUsbSettings;
  for (std::size_t read = 1; read <= 6; ++read) {
    files.readErrors[read] = platform::FileReadError::kNoPermission;
  }
  EXPECT_TRUE(program.Form_Load());
  EXPECT_EQ(panel(2), "COM:");
  EXPECT_EQ(file(), kUsbSettings);
}

// What every start does, seen at the moment a caption or a tab changes.
class BusyView : public form::ControlView {
 public:
  BusyView(const Program& program, const form::Control& watched) : program_(program), watched_(watched) {}
  void changed(const form::Control& control) override {
    if (&control == &watched_) {
      ++changes;
      busy = busy && program_.state.uiBusy;
    }
  }
  void refresh(const form::Control& /*control*/) override {}
  void shieldMoved(bool /*up*/) override {}

  int changes = 0;
  bool busy = true;

 private:
  const Program& program_;
  const form::Control& watched_;
};

TEST_F(SettingsStart, NoControlThatTheStartMovesSendsAnything) {
  form::Control* const watched[] = {&form().SSTab1, &form().StatusBar1, &form().posT, &form().posDV[0]};
  for (form::Control* control : watched) {
    Program other(with(hid), "folder");
    const auto sameName = std::ranges::find(other.form.controls(), control->name(), &form::Control::name);
    ASSERT_NE(sameName, other.form.controls().end());
    BusyView view(other, **sameName);
    other.form.SSTab1.setTab(1);
    hid.forget();
    other.form.setView(&view);
    bool busyAtCaption = false;
    other.form.onCaptionChanged = [&] { busyAtCaption = other.state.uiBusy; };
    file() = "[Caption]\r\nCaption=Mine\r\n[Tabs]\r\nTabs=2\r\n[ComPort]\r\nComPort=0\r\n";
    EXPECT_TRUE(other.Form_Load());
    other.form.setView(nullptr);
    EXPECT_GT(view.changes, 0) << control->name();
    EXPECT_TRUE(view.busy) << control->name();
    EXPECT_TRUE(busyAtCaption);
    EXPECT_EQ(other.form.SSTab1.tab(), 0);
    EXPECT_FALSE(other.state.uiBusy);
  }
  expectLinksUntouched();
}

TEST_F(SettingsStart, AnUnwritableFolderKeepsTheValuesOfTheFirstRunAndSaysNothing) {
  plugSerial(2, 2400);
  files.replaceErrors[1] = platform::FileReplace::kNoPermission;
  EXPECT_TRUE(program.Form_Load());
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_FALSE(fileThere());
  EXPECT_EQ(form().caption(), "Vireon K7310");
  EXPECT_EQ(program.state.modelId, "K7310");
  EXPECT_EQ(program.link.usbProductId, -8188);
  EXPECT_EQ(form().SSTab1.tabs(), 2);
  EXPECT_EQ(panel(2), "COM2:2400");
  EXPECT_EQ(program.link.comWait, 2400);
}

TEST_F(SettingsStart, AFileThatCannotBeWrittenKeepsTheValuesForTheRun) {
  for (const auto error : {platform::FileReplace::kNoSpace, platform::FileReplace::kNoPermission,
                           platform::FileReplace::kNoFolder, platform::FileReplace::kFailed}) {
    Program other(with(hid), "folder");
    pump.timeOut = &other.form.tmrCom;
    files.files.clear();
    files.replaces = 0;
    files.replaceErrors = {{1, error}};
    plugSerial(2, 2400);
    EXPECT_TRUE(other.Form_Load());
    EXPECT_EQ(other.form.caption(), "Vireon K7310");
    EXPECT_EQ(other.state.modelId, "K7310");
    EXPECT_EQ(other.link.usbProductId, -8188);
    EXPECT_EQ(other.form.SSTab1.tabs(), 2);
    EXPECT_EQ(other.form.StatusBar1.panel(2), "COM2:2400");
    EXPECT_FALSE(fileThere());
  }
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(SettingsStart, AReadThatFailsOnceLeavesNoMixtureOfOldAndEmptyValues) {
  writeSerialSettings("2", "4800");
  files.readErrors[1] = platform::FileReadError::kFailed;
  ASSERT_TRUE(program.Form_Load());
  EXPECT_EQ(files.reads, 1U);
  EXPECT_EQ(panel(2), "COM:");
  EXPECT_TRUE(program.requestClose());
  EXPECT_EQ(messages.count(), 0U) << "nothing is offered that would replace the settings";
}

}  // namespace
}  // namespace vireon::app
