#include <gtest/gtest.h>

#include "link/api_usb.h"
#include "tests/fakes/fake_raw_hid.h"

namespace vireon::link {
namespace {

using platform::HidOpenError;
using Paths = std::vector<std::string>;

class ApiUsbSearch : public testing::Test {
 protected:
  tests::FakeRawHid hid;
  form::Form form{""};
  form::StatusBar statusBar{form, "StatusBar1"};
  LinkState link;
  ApiUsb api{hid, link, statusBar};
};

TEST_F(ApiUsbSearch, AmongSeveralDevicesOnlyTheInstrumentIsOpened) {
  hid.nodes = {{"/dev/hidraw0", 0x046D, 0xC01E},
               {"/dev/hidraw1", 0x10C4, 0xEA60},
               {"/dev/hidraw2", 0x10C4, 0xE001},
               {"/dev/hidraw3", 0x046D, 0xE001}};

  EXPECT_TRUE(api.findDevice());

  EXPECT_EQ(hid.openedPaths, (Paths{"/dev/hidraw2", "/dev/hidraw2"}));
  EXPECT_EQ(hid.opens, 2U);
  EXPECT_EQ(hid.openHandles(), 2U);
  EXPECT_TRUE(link.usbOpen);
  EXPECT_EQ(api.openError(), HidOpenError::kNone);
}

TEST_F(ApiUsbSearch, TheFirstOfTwoInstrumentsIsTaken) {
  hid.nodes = {{"/dev/hidraw4", 0x10C4, 0xE001}, {"/dev/hidraw5", 0x10C4, 0xE001}};
  EXPECT_TRUE(api.findDevice());
  EXPECT_EQ(hid.openedPaths, (Paths{"/dev/hidraw4", "/dev/hidraw4"}));
}

TEST_F(ApiUsbSearch, TheSameVendorWithAnotherProductIsIgnored) {
  hid.nodes = {{"/dev/hidraw0", 0x10C4, 0xE002}};
  EXPECT_FALSE(api.findDevice());
  EXPECT_EQ(hid.opens, 0U);
  EXPECT_FALSE(link.usbOpen);
  EXPECT_EQ(api.openError(), HidOpenError::kNotFound);
}

TEST_F(ApiUsbSearch, TheSameProductOfAnotherVendorIsIgnored) {
  hid.nodes = {{"/dev/hidraw0", 0x10C5, 0xE001}};
  EXPECT_FALSE(api.findDevice());
  EXPECT_EQ(hid.opens, 0U);
}

TEST_F(ApiUsbSearch, WithoutAnyDeviceNothingIsFound) {
  hid.nodes.clear();
  EXPECT_FALSE(api.findDevice());
  EXPECT_EQ(api.openError(), HidOpenError::kNotFound);
}

TEST_F(ApiUsbSearch, TheWantedProductIsComparedAsSixteenBits) {
  for (int number = 1; number <= 4; ++number) {
    hid.nodes = {{"/dev/hidraw0", 0x10C4, static_cast<std::uint16_t>(0xE000 + number)}};
    for (int wanted = 1; wanted <= 4; ++wanted) {
      link.usbProductId = static_cast<std::int16_t>(-8192 + wanted);
      EXPECT_EQ(api.findDevice(), wanted == number) << number << " " << wanted;
    }
  }
}

TEST_F(ApiUsbSearch, ADeviceThatDoesNotOpenForWritingIsNotFoundForItsReason) {
  for (const HidOpenError reason :
       {HidOpenError::kNotFound, HidOpenError::kNoPermission, HidOpenError::kFailed}) {
    hid.forget();
    hid.openErrors[1] = reason;
    EXPECT_FALSE(api.findDevice());
    EXPECT_EQ(api.openError(), reason);
    EXPECT_EQ(hid.opens, 1U);
    EXPECT_EQ(hid.openHandles(), 0U);
    EXPECT_FALSE(link.usbOpen);
  }
}

TEST_F(ApiUsbSearch, ADeviceThatDoesNotOpenForReadingIsClosedAgain) {
  for (const HidOpenError reason :
       {HidOpenError::kNotFound, HidOpenError::kNoPermission, HidOpenError::kFailed}) {
    hid.forget();
    hid.openErrors[2] = reason;
    EXPECT_FALSE(api.findDevice());
    EXPECT_EQ(api.openError(), reason);
    EXPECT_EQ(hid.opens, 2U);
    EXPECT_EQ(hid.openHandles(), 0U);
    EXPECT_FALSE(link.usbOpen);
  }
}

TEST_F(ApiUsbSearch, TheNextInstrumentIsTriedWhenOneDoesNotOpen) {
  for (const std::size_t failing : {1U, 2U}) {
    hid.forget();
    hid.openedPaths.clear();
    hid.closes = 0;
    hid.nodes = {{"/dev/hidraw0", 0x10C4, 0xE001}, {"/dev/hidraw1", 0x10C4, 0xE001}};
    hid.openErrors[failing] = HidOpenError::kNoPermission;

    EXPECT_TRUE(api.findDevice());

    EXPECT_EQ(hid.openedPaths.back(), "/dev/hidraw1");
    EXPECT_EQ(hid.openHandles(), 2U);
    EXPECT_EQ(api.openError(), HidOpenError::kNone);
    api.closeDevice();
  }
}

TEST_F(ApiUsbSearch, ASecondSearchClosesTheHandlesOfTheFirst) {
  ASSERT_TRUE(api.findDevice());
  EXPECT_TRUE(api.findDevice());
  EXPECT_EQ(hid.openHandles(), 2U);
  EXPECT_EQ(hid.closes, 2U);
}

TEST_F(ApiUsbSearch, AFailedSearchLeavesNothingOpenFromBefore) {
  ASSERT_TRUE(api.findDevice());
  hid.unplug();
  EXPECT_FALSE(api.findDevice());
  EXPECT_EQ(hid.openHandles(), 0U);
  EXPECT_FALSE(link.usbOpen);
}

TEST_F(ApiUsbSearch, TheReasonOfAFailureIsForgottenByTheNextSearch) {
  hid.openErrors[1] = HidOpenError::kNoPermission;
  ASSERT_FALSE(api.findDevice());
  hid.nodes.clear();
  EXPECT_FALSE(api.findDevice());
  EXPECT_EQ(api.openError(), HidOpenError::kNotFound);
}

TEST_F(ApiUsbSearch, OpeningPreparesTheFirstRead) {
  ASSERT_TRUE(api.findDevice());
  EXPECT_EQ(hid.discards, 1U);
}

TEST_F(ApiUsbSearch, ClosingEndsBothHandles) {
  ASSERT_TRUE(api.findDevice());
  api.closeDevice();
  EXPECT_EQ(hid.openHandles(), 0U);
  EXPECT_FALSE(link.usbOpen);
}

}  // namespace
}  // namespace vireon::link
