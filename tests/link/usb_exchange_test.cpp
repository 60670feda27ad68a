#include <gtest/gtest.h>

#include "tests/link/connection_fixture.h"

namespace vireon::link {
namespace {

using Report = tests::FakeRawHid::Report;

// The reports of commands, as they leave.
class UsbCommandReports : public tests::ConnectionFixture {
 protected:
  std::string payload(std::size_t report) const {
    const Report& bytes = hid.written.at(report);
    return {bytes.begin() + 1, bytes.end()};
  }

  std::string payloads() const {
    std::string all;
    for (std::size_t report = 0; report < hid.written.size(); ++report) {
      all += payload(report);
    }
    return all;
  }

  // A command without a repetition.
  static std::string command(std::size_t length) {
    std::string text;
    for (std::size_t index = 0; index < length; ++index) {
      text += static_cast<char>(' ' + index % 90);
    }
    return text;
  }
};

std::string zeros(std::size_t count) {
  return std::string(count, '\0');
}

TEST_F(UsbCommandReports, AShortCommandIsStxTextEtxInOneReport) {
  EXPECT_TRUE(connection.trans_usb("DFN??"));
  ASSERT_EQ(hid.written.size(), 1U);
  EXPECT_EQ(hid.written[0].size(), 65U);
  EXPECT_EQ(hid.written[0][0], 0);
  EXPECT_EQ(payload(0), "\2DFN??\3" + zeros(57));
}

TEST_F(UsbCommandReports, AnEmptyCommandIsStxAndEtx) {
  connection.trans_usb("");
  EXPECT_EQ(payload(0), "\2\3" + zeros(62));
}

TEST_F(UsbCommandReports, ACommandOf62CharactersFillsOneReport) {
  connection.trans_usb(command(62));
  ASSERT_EQ(hid.written.size(), 1U);
  EXPECT_EQ(payload(0), "\2" + command(62) + "\3");
}

TEST_F(UsbCommandReports, TheEtxOfA63CharacterCommandGoesAloneInASecondReport) {
  connection.trans_usb(command(63));
  ASSERT_EQ(hid.written.size(), 2U);
  EXPECT_EQ(payload(0), "\2" + command(63));
  EXPECT_EQ(payload(1), "\3" + command(63));
}

TEST_F(UsbCommandReports, ACommandOf64CharactersSendsOneCharacterAndTheEtxInASecondReport) {
  connection.trans_usb(command(64));
  ASSERT_EQ(hid.written.size(), 2U);
  EXPECT_EQ(payload(0), "\2" + command(63));
  EXPECT_EQ(payload(1), command(64).substr(63) + "\3" + command(63).substr(1));
}

TEST_F(UsbCommandReports, ACommandOf126CharactersFillsTwoReports) {
  connection.trans_usb(command(126));
  ASSERT_EQ(hid.written.size(), 2U);
  EXPECT_EQ(payload(1), command(126).substr(63) + "\3");
}

TEST_F(UsbCommandReports, TheEtxOfA127CharacterCommandGoesAloneInAThirdReport) {
  connection.trans_usb(command(127));
  ASSERT_EQ(hid.written.size(), 3U);
  EXPECT_EQ(payload(1), command(127).substr(63));
  EXPECT_EQ(payload(2), "\3" + command(127).substr(64));
}

TEST_F(UsbCommandReports, EveryLengthIsCutIntoReportsWithOneStxAndOneEtx) {
  for (std::size_t length = 0; length <= 300; ++length) {
    hid.forget();
    connection.trans_usb(command(length));
    EXPECT_EQ(hid.written.size(), (length + 2 + 63) / 64) << length;
    EXPECT_EQ(payloads().substr(0, length + 2), "\2" + command(length) + "\3") << length;
    EXPECT_EQ(hid.commands, std::vector<std::string>{command(length)}) << length;
  }
}

TEST_F(UsbCommandReports, BytesBehindTheEtxKeepWhatAnEarlierCommandLeft) {
  connection.trans_usb("ABCDEFGH");
  connection.trans_usb("DFN??");
  EXPECT_EQ(payload(1), "\2DFN??\3GH\3" + zeros(54));
}

TEST_F(UsbCommandReports, BytesAbove127AreOneCharacterEach) {
  connection.trans_usb("\xB5\xFF");
  EXPECT_EQ(payload(0).substr(0, 4), "\2\xB5\xFF\3");
}

TEST_F(UsbCommandReports, ThePrefixIsDormant) {
  EXPECT_FALSE(link.usbPrefix);
  for (int exchange = 0; exchange < 3; ++exchange) {
    connection.trans_usb("VDA??");
    EXPECT_FALSE(link.usbPrefix);
  }
}

TEST_F(UsbCommandReports, ThePrefixStandsBehindTheStxOfOneCommandAlone) {
  link.usbPrefix = true;
  connection.trans_usb("SID??");
  connection.trans_usb("SIM??");
  EXPECT_EQ(payload(0), "\2\xFE\xFDSID??\3" + zeros(55));
  EXPECT_EQ(payload(1).substr(0, 7), "\2SIM??\3");
  EXPECT_FALSE(link.usbPrefix);
}

TEST_F(UsbCommandReports, ThePrefixShortensTheFirstReportOnly) {
  struct Row {
    std::size_t length;
    std::size_t reports;
  };
  for (const Row row : {Row{60, 1}, Row{61, 2}, Row{124, 2}, Row{125, 3}}) {
    hid.forget();
    link.usbPrefix = true;
    connection.trans_usb(command(row.length));
    EXPECT_EQ(hid.written.size(), row.reports) << row.length;
    EXPECT_EQ(payloads().substr(0, row.length + 4), "\2\xFE\xFD" + command(row.length) + "\3") << row.length;
  }
}

TEST_F(UsbCommandReports, ADeviceThatIsNotOpenIsSearchedFirst) {
  ASSERT_FALSE(link.usbOpen);
  EXPECT_TRUE(connection.trans_usb("DFN??"));
  EXPECT_TRUE(link.usbOpen);
  EXPECT_EQ(hid.opens, 2U);
}

TEST_F(UsbCommandReports, AnOpenDeviceIsNotSearchedAgain) {
  connection.trans_usb("DFN??");
  connection.trans_usb("DFN??");
  EXPECT_EQ(hid.opens, 2U);
}

TEST_F(UsbCommandReports, AnExchangeShowsConnectedInPanelTwo) {
  form.StatusBar1.setPanel(1, "one");
  form.StatusBar1.setPanel(2, "two");
  connection.trans_usb("DFN??");
  EXPECT_EQ(form.StatusBar1.panel(1), "one");
  EXPECT_EQ(form.StatusBar1.panel(2), "Connected");
}

TEST_F(UsbCommandReports, AnExchangeMakesNoSoundAndConnectsNothing) {
  connection.trans_usb("DFN??");
  EXPECT_EQ(beeper.beeps, 0);
  EXPECT_FALSE(connection.connected());
  EXPECT_EQ(messages.count(), 0U);
}

}  // namespace
}  // namespace vireon::link
