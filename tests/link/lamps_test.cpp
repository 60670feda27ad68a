#include <gtest/gtest.h>

#include "tests/link/connection_fixture.h"
#include "tests/link/lamp_view.h"

namespace vireon::link {
namespace {

using tests::Lamps;
using tests::LampView;

constexpr std::uint32_t kRed = tests::kRedLamp;
constexpr std::uint32_t kGreen = tests::kGreenLamp;
constexpr std::uint32_t kWhite = tests::kWhiteLamp;

class LinkLamps : public tests::ConnectionFixture {
 protected:
  LinkLamps() { form.setView(&view); }
  ~LinkLamps() override { form.setView(nullptr); }

  LampView view{form};
};

TEST_F(LinkLamps, AnExchangePaintsRedThenGreenThenWhite) {
  connection.trans_usb("DFN??");
  EXPECT_EQ(view.painted,
            (std::vector<Lamps>{{kRed, kWhite}, {kWhite, kWhite}, {kWhite, kGreen}, {kWhite, kWhite}}));
}

TEST_F(LinkLamps, TheTransmitLampIsRedWhileTheCommandLeaves) {
  Lamps seen;
  hid.instrument = [&](const std::string&) {
    seen = view.shown();
    return tests::framed("\6");
  };
  connection.trans_usb("DFN??");
  EXPECT_EQ(seen, (Lamps{kRed, kWhite}));
}

TEST_F(LinkLamps, AFailureLeavesBothWhiteOnTheScreen) {
  for (const std::size_t failing : {1U, 2U}) {
    hid.forget();
    hid.answerAll(tests::framed(std::string(100, 'x')));
    hid.writeFaults[failing] = platform::HidTransfer::kFailed;
    connection.trans_usb("DFN??");
    EXPECT_EQ(view.shown(), (Lamps{kWhite, kWhite})) << failing;
  }
}

TEST_F(LinkLamps, AnAnswerTooLongLeavesBothWhiteOnTheScreen) {
  hid.answerAll("\2" + std::string(700, 'x'));
  connection.trans_usb("DFN??");
  EXPECT_EQ(view.shown(), (Lamps{kWhite, kWhite}));
}

TEST_F(LinkLamps, ACommandOverASerialPortThatIsNotOpenPaintsNoLamp) {
  link.comPort = "1";
  connection.trans_usb("DFN??");
  EXPECT_TRUE(view.painted.empty());
}

}  // namespace
}  // namespace vireon::link
