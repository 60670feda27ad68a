#include <gtest/gtest.h>

#include "tests/link/connection_fixture.h"

namespace vireon::link {
namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t kLongestText = 599;  // with STX and ETX the 601 bytes of rxBuf

// What an answer leaves in rxBuf and rxLen.
class UsbAnswer : public tests::ConnectionFixture {
 protected:
  std::string received(std::size_t first, std::size_t count) const {
    const auto from = state.rxBuf.begin() + static_cast<std::ptrdiff_t>(first);
    return {from, from + static_cast<std::ptrdiff_t>(count)};
  }

  void expectSilentEnd() {
    EXPECT_EQ(frames, Texts{});
    EXPECT_EQ(link.usbResult, 0);
    EXPECT_TRUE(link.usbOpen);
    EXPECT_EQ(hid.openHandles(), 2U);
    EXPECT_EQ(messages.count(), 0U);
    EXPECT_EQ(form.Txled[0].fillColor(), form::kWhite);
    EXPECT_EQ(form.Txled[1].fillColor(), form::kWhite);
    EXPECT_EQ(form.StatusBar1.panel(2), "Connected");
  }
};

std::string lengthText(std::size_t length) {
  std::string text;
  for (std::size_t index = 0; index < length; ++index) {
    text += static_cast<char>('0' + index % 70);
  }
  return text;
}

TEST_F(UsbAnswer, TheTextStandsFromIndexOneBehindTheStx) {
  hid.answerAll(tests::framed("vda:44"));
  EXPECT_TRUE(connection.trans_usb("VDA??"));
  EXPECT_EQ(frames, Texts{"vda:44"});
  EXPECT_EQ(state.rxLen, 6);
  EXPECT_EQ(received(0, 7), "\2vda:44");
  EXPECT_EQ(link.usbResult, 1);
}

TEST_F(UsbAnswer, EveryLengthUpTo599ArrivesWholeWithOneRequestForEachFurtherReport) {
  for (std::size_t length = 0; length <= kLongestText; ++length) {
    hid.forget();
    frames.clear();
    hid.answerAll(tests::framed(lengthText(length)));

    EXPECT_TRUE(connection.trans_usb("DRS??"));

    const std::size_t reports = (length + 2 + 63) / 64;
    EXPECT_EQ(frames, Texts{lengthText(length)}) << length;
    EXPECT_EQ(state.rxLen, static_cast<int>(length));
    EXPECT_EQ(hid.reads, reports) << length;
    EXPECT_EQ(hid.written.size(), reports) << length;
    EXPECT_EQ(state.rxBuf[0], 2);
    EXPECT_EQ(link.usbResult, 1);
  }
}

TEST_F(UsbAnswer, ARequestForTheNextReportIsACodeFourAndTheOldBytes) {
  hid.answerAll(tests::framed(lengthText(150)));
  connection.trans_usb("DRM??;DRP??");
  ASSERT_EQ(hid.written.size(), 3U);
  tests::FakeRawHid::Report request = hid.written[0];
  request[1] = 4;
  EXPECT_EQ(hid.written[1], request);
  EXPECT_EQ(hid.written[2], request);
}

TEST_F(UsbAnswer, BytesBehindTheTextAreTheEtxAndThoseOfAnOlderAnswer) {
  hid.answerAll(tests::framed("afn:DC VOLTAGE AUTO"));
  connection.trans_usb("AFN??");
  hid.answerAll(tests::framed("ab"));
  connection.trans_usb("XY");
  EXPECT_EQ(state.rxLen, 2);
  EXPECT_EQ(received(0, 20), "\2ab\3:DC VOLTAGE AUTO");
}

TEST_F(UsbAnswer, WhatFollowsTheEtxInAReportIsIgnored) {
  hid.filler = 'Z';
  hid.answerAll(tests::framed("hdv:07"));
  connection.trans_usb("HDV??");
  EXPECT_EQ(frames, Texts{"hdv:07"});
  EXPECT_EQ(received(8, 3), std::string(3, '\0'));
}

TEST_F(UsbAnswer, AnAnswerEndsAtItsFirstEtx) {
  hid.answerAll("\2one\3two\3");
  connection.trans_usb("SID??");
  EXPECT_EQ(frames, Texts{"one"});
}

TEST_F(UsbAnswer, AnEtxAloneIsAnEmptyFrame) {
  hid.answerAll("\3");
  EXPECT_TRUE(connection.trans_usb("SID??"));
  EXPECT_EQ(frames, Texts{""});
  EXPECT_EQ(state.rxLen, 0);
  EXPECT_EQ(state.rxBuf[0], 3);
}

TEST_F(UsbAnswer, StxAndEtxAreAnEmptyFrame) {
  hid.answerAll("\2\3");
  EXPECT_TRUE(connection.trans_usb("SID??"));
  EXPECT_EQ(frames, Texts{""});
  EXPECT_EQ(state.rxLen, 0);
  EXPECT_EQ(received(0, 2), "\2\3");
}

TEST_F(UsbAnswer, AControlAnswerIsOneByteOfText) {
  hid.answerAll(tests::framed("\6"));
  connection.trans_usb("VDAup");
  EXPECT_EQ(frames, Texts{"\6"});
  EXPECT_EQ(state.rxBuf[1], 6);
}

TEST_F(UsbAnswer, TheFrameIsHandedOverWhenBothLampsAreWhite) {
  connection.onFrame([this] {
    EXPECT_EQ(form.Txled[0].fillColor(), form::kWhite);
    EXPECT_EQ(form.Txled[1].fillColor(), form::kWhite);
    frames.emplace_back("seen");
  });
  connection.trans_usb("DFN??");
  EXPECT_EQ(frames, Texts{"seen"});
}

TEST_F(UsbAnswer, AnAnswerThatNobodyTakesEndsTheExchangeLikeAnyOther) {
  connection.onFrame(nullptr);
  EXPECT_TRUE(connection.trans_usb("DFN??"));
  EXPECT_EQ(link.usbResult, 1);
}

TEST_F(UsbAnswer, AnAnswerOf601BytesFitsExactly) {
  hid.answerAll(tests::framed(lengthText(599)));
  connection.trans_usb("DRS??");
  EXPECT_EQ(frames, Texts{lengthText(599)});
  EXPECT_EQ(state.rxBuf[600], 3);
}

TEST_F(UsbAnswer, AnAnswerOf602BytesEndsTheExchangeSilently) {
  hid.answerAll(tests::framed(lengthText(600)));
  EXPECT_TRUE(connection.trans_usb("DRS??"));
  expectSilentEnd();
  EXPECT_EQ(hid.reads, 10U);
  EXPECT_EQ(state.rxBuf[600], static_cast<std::uint8_t>(lengthText(600).back()));
}

TEST_F(UsbAnswer, AnAnswerThatNeverEndsIsEndedSilently) {
  hid.answerAll("\2" + lengthText(5000));
  EXPECT_TRUE(connection.trans_usb("DRS??"));
  expectSilentEnd();
  EXPECT_EQ(hid.reads, 10U);
}

TEST_F(UsbAnswer, ALiveScopeStaysConnectedThroughAnAnswerTooLong) {
  connect();
  sample();
  hid.answerAll("\2" + lengthText(700));
  connection.trans_usb("DRS??");
  EXPECT_TRUE(connection.connected());
  EXPECT_EQ(form.cmdStart.caption(), "Stop");
  EXPECT_TRUE(form.tmrInt.enabled());
}

TEST_F(UsbAnswer, TheExchangeAfterAnAnswerTooLongIsClean) {
  hid.answerAll("\2" + lengthText(1000));
  connection.trans_usb("DRS??");
  hid.deliver("what the instrument still had to say");
  hid.answerAll(tests::framed("vpa:22"));
  EXPECT_TRUE(connection.trans_usb("VPA??"));
  EXPECT_EQ(frames, Texts{"vpa:22"});
  EXPECT_EQ(link.usbResult, 1);
}

TEST_F(UsbAnswer, ReportsTooShortForAnAnswerEndTheExchangeSilently) {
  hid.lengths.inputReportLength = 33;
  hid.answerAll(tests::framed(lengthText(100)));
  EXPECT_TRUE(connection.trans_usb("DRS??"));
  expectSilentEnd();
}

TEST_F(UsbAnswer, ReportsLeftOverAreDroppedBeforeTheFirstReportIsWritten) {
  connection.trans_usb("DFN??");
  frames.clear();
  hid.deliver(tests::framed("old"));
  hid.deliver(tests::framed("older"));
  hid.answerAll(tests::framed("new"));
  connection.trans_usb("DFN??");
  EXPECT_EQ(frames, Texts{"new"});
}

TEST_F(UsbAnswer, EachReportIsWaitedForSixSeconds) {
  hid.answerAll(tests::framed(lengthText(100)));
  connection.trans_usb("DRS??");
  EXPECT_EQ(hid.timeouts, std::vector(2, std::chrono::milliseconds(6000)));
}

}  // namespace
}  // namespace vireon::link
