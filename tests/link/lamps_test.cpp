#include <gtest/gtest.h>

#include <utility>

#include "tests/link/connection_fixture.h"

namespace vireon::link {
namespace {

using Lamps = std::pair<std::uint32_t, std::uint32_t>;  // transmit, receive

constexpr std::uint32_t kRed = 255;
constexpr std::uint32_t kGreen = 65280;
constexpr std::uint32_t kWhite = 16777215;

// What the lamps show each time the window must paint them at once.
class LampView : public form::ControlView {
 public:
  explicit LampView(const form::MainForm& form) : form_(form) {}

  void changed(const form::Control&) override {}
  void refresh(const form::Control& control) override {
    if (&control == &form_.Txled[0]) {
      shown_.first = form_.Txled[0].fillColor().value;
    } else if (&control == &form_.Txled[1]) {
      shown_.second = form_.Txled[1].fillColor().value;
    }
    if (painted.empty() || painted.back() != shown_) {
      painted.push_back(shown_);
    }
  }

  Lamps shown() const { return shown_; }

  std::vector<Lamps> painted;  // each new state once

 private:
  const form::MainForm& form_;
  Lamps shown_{kWhite, kWhite};
};

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

TEST_F(LinkLamps, ACommandOverTheSerialLinkPaintsNoLamp) {
  link.comPort = "1";
  connection.trans_usb("DFN??");
  EXPECT_TRUE(view.painted.empty());
}

}  // namespace
}  // namespace vireon::link
