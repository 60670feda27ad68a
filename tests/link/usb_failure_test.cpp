#include <gtest/gtest.h>

#include "tests/link/connection_fixture.h"

namespace vireon::link {
namespace {

using platform::HidTransfer;
using Texts = std::vector<std::string>;

constexpr HidTransfer kReadFaults[] = {HidTransfer::kTimedOut, HidTransfer::kWrongLength,
                                       HidTransfer::kFailed};

// An exchange of seven reports: two of the command, three of the answer, two requests between those.
class UsbFailure : public tests::ConnectionFixture {
 protected:
  static constexpr std::size_t kReports = 7;

  UsbFailure() { hid.answerAll(tests::framed(std::string(150, 'a'))); }

  void startLive() {
    connect();
    sample();
    messages.shown.clear();
  }

  bool exchange() { return connection.trans_usb(std::string(100, 'Q')); }

  void expectFailed() {
    EXPECT_EQ(frames, Texts{});
    EXPECT_NE(link.usbResult, 1);
    expectOneFailureMessage();
    expectDisconnected();
  }

  void expectCleanReconnect() {
    hid.plug();
    hid.forget();
    frames.clear();
    connection.cmdBttn_Click(0);
    EXPECT_TRUE(connection.connected());
    EXPECT_EQ(hid.commands, Texts{"DFN??"});
    EXPECT_EQ(hid.openHandles(), 2U);
    EXPECT_EQ(frames.size(), 1U);
    EXPECT_EQ(messages.count(), 1U);
  }
};

TEST_F(UsbFailure, ADeviceThatIsNotThereIsReportedOnceAndNothingIsSent) {
  hid.nodes.clear();
  EXPECT_FALSE(exchange());
  EXPECT_TRUE(hid.written.empty());
  expectFailed();
}

TEST_F(UsbFailure, AMissingPermissionIsExplainedInPanelOneUntilTheDeviceOpens) {
  hid.openErrors[1] = platform::HidOpenError::kNoPermission;
  EXPECT_FALSE(exchange());
  EXPECT_EQ(form.StatusBar1.panel(1), "No permission for /dev/hidraw0: a udev rule gives it");
  EXPECT_NE(form.StatusBar1.toolTip(1).find("ATTRS{idVendor}==\"10c4\""), std::string::npos);
  EXPECT_TRUE(exchange());
  EXPECT_EQ(form.StatusBar1.panel(1), "");
  EXPECT_EQ(form.StatusBar1.toolTip(1), "");
}

TEST_F(UsbFailure, AnAbsentDeviceLeavesPanelOneAlone) {
  form.StatusBar1.setPanel(1, "a text of another");
  hid.nodes.clear();
  EXPECT_FALSE(exchange());
  EXPECT_EQ(form.StatusBar1.panel(1), "a text of another");
}

TEST_F(UsbFailure, ADeviceThatMayNotBeOpenedIsReportedOnce) {
  hid.openErrors[1] = platform::HidOpenError::kNoPermission;
  EXPECT_FALSE(exchange());
  expectFailed();
  EXPECT_EQ(connection.apiUsb().openError(), platform::HidOpenError::kNoPermission);
}

TEST_F(UsbFailure, AWriteThatFailsAtAnyReportDisconnects) {
  for (std::size_t report = 1; report <= 4; ++report) {
    SCOPED_TRACE(report);  // 1 first, 2 continuation, 3 and 4 requests
    startLive();
    hid.writeFaults[report] = HidTransfer::kFailed;
    EXPECT_FALSE(exchange());
    EXPECT_EQ(hid.written.size(), report);
    EXPECT_EQ(hid.reads, report < 3 ? 0 : report - 2);
    expectFailed();
    expectCleanReconnect();
    connection.cmdBttn_Click(0);
  }
}

TEST_F(UsbFailure, AFailedWriteCancelsThePendingInput) {
  for (const std::size_t report : {1U, 3U}) {
    startLive();
    hid.writeFaults[report] = HidTransfer::kFailed;
    exchange();
    EXPECT_EQ(hid.discards, 2U) << report;
  }
}

TEST_F(UsbFailure, AReadThatFailsAtAnyReportDisconnects) {
  for (const HidTransfer fault : kReadFaults) {
    for (std::size_t report = 1; report <= 3; ++report) {
      SCOPED_TRACE(report);
      startLive();
      hid.readFaults[report] = fault;
      EXPECT_FALSE(exchange());
      EXPECT_EQ(hid.reads, report);
      EXPECT_EQ(hid.written.size(), report + 1);
      expectFailed();
      expectCleanReconnect();
      connection.cmdBttn_Click(0);
    }
  }
}

TEST_F(UsbFailure, AnInstrumentThatStaysSilentDisconnects) {
  startLive();
  hid.answerAll("");
  EXPECT_FALSE(exchange());
  EXPECT_EQ(hid.reads, 1U);
  expectFailed();
}

TEST_F(UsbFailure, AnAnswerThatStopsHalfWayDisconnects) {
  startLive();
  hid.answerAll("\2" + std::string(63, 'a'));
  EXPECT_FALSE(exchange());
  EXPECT_EQ(hid.reads, 2U);
  expectFailed();
}

TEST_F(UsbFailure, UnpluggingAtAnyReportDisconnectsAndAReconnectIsClean) {
  for (std::size_t report = 1; report <= kReports; ++report) {
    SCOPED_TRACE(report);
    startLive();
    hid.unplugAtTransfer = report;
    EXPECT_FALSE(exchange());
    EXPECT_EQ(hid.transfers, report);
    expectFailed();
    expectCleanReconnect();
    connection.cmdBttn_Click(0);
  }
}

TEST_F(UsbFailure, TheWholeExchangeIsSevenReports) {
  startLive();
  EXPECT_TRUE(exchange());
  EXPECT_EQ(hid.transfers, kReports);
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(UsbFailure, ConnectingWithoutTheDeviceAfterAnUnplugIsOneMoreMessageAndNoConnection) {
  startLive();
  hid.unplugAtTransfer = 1;
  exchange();
  messages.shown.clear();
  connection.cmdBttn_Click(0);
  expectFailed();
}

TEST_F(UsbFailure, TheFailurePathLeadsFromEveryStateToTheDisconnectedOne) {
  const std::pair<const char*, std::function<void()>> states[] = {
      {"disconnected", [] {}},
      {"open but not connected", [this] { connection.apiUsb().findDevice(); }},
      {"connected", [this] { connect(); }},
      {"live", [this] { startLive(); }},
      {"settings query",
       [this] {
         connect();
         form.cmdBttn[0].setBackColor(form::kLightRed);
       }},
      {"transmitting",
       [this] {
         connect();
         form.Txled[0].setFillColor(form::kRed);
         form.Txled[1].setFillColor(form::kGreen);
       }},
  };
  for (const auto& [name, enter] : states) {
    SCOPED_TRACE(name);
    enter();
    messages.shown.clear();
    connection.usbFail();
    expectOneFailureMessage();
    expectDisconnected();
  }
}

TEST_F(UsbFailure, TheDeviceIsClosedBeforeTheMessageAndTheLampsFollowIt) {
  startLive();
  form.Txled[1].setFillColor(form::kGreen);
  bool open = false;
  messages.whileOpen = [&](const platform::Message&) {
    open = true;
    EXPECT_EQ(hid.openHandles(), 0U);
    EXPECT_EQ(form.cmdStart.backColor(), form::kButtonFace);
    EXPECT_EQ(form.StatusBar1.panel(2), "Disconnected");
    EXPECT_EQ(form.Txled[1].fillColor(), form::kGreen);
  };
  connection.usbFail();
  EXPECT_TRUE(open);
  expectDisconnected();
}

TEST_F(UsbFailure, TheFailurePathMakesNoSound) {
  connection.usbFail();
  EXPECT_EQ(beeper.beeps, 0);
}

}  // namespace
}  // namespace vireon::link
