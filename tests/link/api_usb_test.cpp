#include "link/api_usb.h"

#include <gtest/gtest.h>

#include <numeric>

#include "tests/fakes/fake_raw_hid.h"

namespace vireon::link {
namespace {

using platform::HidTransfer;
using Calls = std::vector<std::string>;
using Report = tests::FakeRawHid::Report;
using namespace std::chrono_literals;

class ApiUsbReports : public testing::Test {
 protected:
  ApiUsbReports() {
    api.onPlatformCall = [this](std::string_view call) { calls.emplace_back(call); };
    std::iota(api.outReport.begin(), api.outReport.end(), std::uint8_t{100});
  }

  void open() {
    ASSERT_TRUE(api.findDevice());
    calls.clear();
  }

  tests::FakeRawHid hid;
  form::Form form{""};
  form::StatusBar statusBar{form, "StatusBar1"};
  LinkState link;
  ApiUsb api{hid, link, statusBar};
  Calls calls;
};

// Identifier 0 and `count` bytes from 100 on, filled with zeros up to `length`.
Report outputReport(std::size_t count, std::size_t length) {
  Report report(length, 0);
  std::iota(report.begin() + 1, report.begin() + 1 + static_cast<std::ptrdiff_t>(count), std::uint8_t{100});
  return report;
}

TEST_F(ApiUsbReports, AnOutputReportIsIdentifierZeroAndThePayload) {
  open();
  api.writeReport();
  EXPECT_EQ(hid.written, std::vector<Report>{outputReport(64, 65)});
  EXPECT_EQ(link.usbResult, 1);
}

TEST_F(ApiUsbReports, AnOutputReportIsAsLongAsTheDeviceAsks) {
  struct Row {
    std::size_t length;
    std::size_t payload;
  };
  for (const Row row : {Row{33, 32}, Row{64, 63}, Row{66, 65}, Row{90, 65}, Row{1, 0}}) {
    hid.forget();
    hid.lengths.outputReportLength = row.length;
    open();
    api.writeReport();
    EXPECT_EQ(hid.written, std::vector<Report>{outputReport(row.payload, row.length)}) << row.length;
  }
}

TEST_F(ApiUsbReports, AFailedWriteIsNoSuccessAndLeavesTheHandlesOpen) {
  open();
  hid.writeFaults[1] = HidTransfer::kFailed;
  link.usbResult = 1;
  api.writeReport();
  EXPECT_EQ(link.usbResult, 0);
  EXPECT_TRUE(link.usbOpen);
  EXPECT_EQ(hid.openHandles(), 2U);
}

TEST_F(ApiUsbReports, WritingToAClosedDeviceIsNoSuccess) {
  link.usbResult = 1;
  api.writeReport();
  EXPECT_EQ(link.usbResult, 0);
  EXPECT_TRUE(hid.written.empty());
}

TEST_F(ApiUsbReports, AnInputReportHasItsPayloadFromElementOne) {
  open();
  std::string payload(64, 'x');
  payload.front() = 'a';
  payload.back() = 'z';
  hid.deliver(payload);

  api.readReport();

  EXPECT_EQ(link.usbResult, 1);
  ASSERT_EQ(api.inReport.size(), 65U);
  EXPECT_EQ(api.inReport[0], 0);
  EXPECT_EQ(api.inReport[1], 'a');
  EXPECT_EQ(api.inReport[64], 'z');
  EXPECT_TRUE(link.usbOpen);
  EXPECT_EQ(statusBar.panel(2), "");
}

TEST_F(ApiUsbReports, AnInputReportIsAsLongAsTheDeviceSays) {
  hid.lengths.inputReportLength = 33;
  open();
  hid.deliver("short");
  api.readReport();
  EXPECT_EQ(link.usbResult, 1);
  EXPECT_EQ(api.inReport.size(), 33U);
}

TEST_F(ApiUsbReports, AReadWaitsSixSeconds) {
  open();
  api.readReport();
  EXPECT_EQ(hid.timeouts, std::vector<std::chrono::milliseconds>{6000ms});
}

TEST_F(ApiUsbReports, EveryFailureOfAReadClosesBothHandles) {
  for (const HidTransfer fault : {HidTransfer::kTimedOut, HidTransfer::kWrongLength, HidTransfer::kFailed}) {
    hid.forget();
    statusBar.setPanel(2, "Connected");
    open();
    hid.deliver("answer");
    hid.readFaults[1] = fault;
    link.usbResult = 1;

    api.readReport();

    EXPECT_EQ(link.usbResult, 0);
    EXPECT_FALSE(link.usbOpen);
    EXPECT_EQ(hid.openHandles(), 0U);
    EXPECT_EQ(statusBar.panel(2), "Disconnected");
  }
}

TEST_F(ApiUsbReports, ReadingFromAClosedDeviceIsNoSuccess) {
  link.usbResult = 1;
  api.readReport();
  EXPECT_EQ(link.usbResult, 0);
  EXPECT_EQ(statusBar.panel(2), "Disconnected");
  EXPECT_EQ(calls, Calls{});
}

TEST_F(ApiUsbReports, PreparingAReadDropsWhatIsLeftOver) {
  open();
  hid.deliver("left over");
  api.prepareRead();
  api.readReport();
  EXPECT_EQ(link.usbResult, 0);
}

TEST_F(ApiUsbReports, PreparingAReadOfAClosedDeviceDoesNothing) {
  api.prepareRead();
  EXPECT_EQ(hid.discards, 0U);
}

TEST_F(ApiUsbReports, AReadNamesItsPlatformCall) {
  open();
  hid.deliver("answer");
  api.readReport();
  EXPECT_EQ(calls, Calls{"ReadFile"});
}

TEST_F(ApiUsbReports, ATimeOutNamesItsPlatformCallsInOrder) {
  open();
  hid.discards = 0;
  api.readReport();
  EXPECT_EQ(calls, (Calls{"ReadFile", "CancelIo", "CloseHandle (HIDHandle)", "CloseHandle (ReadHandle)"}));
  EXPECT_EQ(hid.discards, 1U);
}

TEST_F(ApiUsbReports, AFailedReadCancelsNothing) {
  open();
  hid.discards = 0;
  hid.readFaults[1] = HidTransfer::kFailed;
  api.readReport();
  EXPECT_EQ(calls, (Calls{"ReadFile", "CloseHandle (HIDHandle)", "CloseHandle (ReadHandle)"}));
  EXPECT_EQ(hid.discards, 0U);
}

TEST_F(ApiUsbReports, ClosingNamesItsPlatformCallsOnce) {
  open();
  api.closeDevice();
  api.closeDevice();
  EXPECT_EQ(calls, (Calls{"CloseHandle (HIDHandle)", "CloseHandle (ReadHandle)"}));
}

TEST_F(ApiUsbReports, NobodyNeedsToHearThePlatformCalls) {
  api.onPlatformCall = nullptr;
  open();
  api.readReport();
  EXPECT_FALSE(link.usbOpen);
}

}  // namespace
}  // namespace vireon::link
