#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "tests/usb/simulated_device.h"
#include "tests/usb/usb_program.h"

namespace vireon::tests {
namespace {

constexpr uid_t kNobody = 65534;

// The process acts as an account without rights while this object lives.
class WithoutRights {
 public:
  WithoutRights() { EXPECT_EQ(::seteuid(kNobody), 0); }
  WithoutRights(const WithoutRights&) = delete;
  WithoutRights& operator=(const WithoutRights&) = delete;
  ~WithoutRights() { EXPECT_EQ(::seteuid(0), 0); }
};

class UsbPermission : public testing::Test {
 protected:
  UsbPermission() { usb.loadWithSettings(); }

  // As the system's own rules would, from outside the account.
  void setRights(mode_t mode) const { EXPECT_EQ(::chmod(node.c_str(), mode), 0); }

  const SimulatedDevice device;
  const std::string node = device.gadget.hostNode().value_or("");
  UsbProgram usb;
};

TEST_F(UsbPermission, ANodeThatMayNotBeOpenedIsExplainedAndOpensOnceItMay) {
  setRights(0600);
  {
    const WithoutRights account;
    usb.form().cmdBttn[0].click();
  }
  usb.expectLost();
  EXPECT_EQ(usb.form().StatusBar1.panel(1), "No permission for " + node + ": a udev rule gives it");
  EXPECT_NE(usb.form().StatusBar1.toolTip(1).find("udevadm"), std::string::npos);
  setRights(0666);
  const WithoutRights account;
  usb.expectCleanReconnect();
  EXPECT_EQ(usb.form().StatusBar1.panel(1), "");
}

TEST_F(UsbPermission, ANodeThatGetsItsRightsWithinASecondOpensWithoutAWord) {
  setRights(0600);
  adapters::NodePatience patience;
  int pauses = 0;
  patience.pause = [&] {
    if (++pauses == 3) {
      ASSERT_EQ(::seteuid(0), 0);
      setRights(0666);
      ASSERT_EQ(::seteuid(kNobody), 0);
    }
  };
  adapters::HidapiPort hid(adapters::probeHidrawNode, std::chrono::steady_clock::now, patience);
  const auto nodes = hid.list();
  ASSERT_EQ(nodes.size(), 1U);
  const WithoutRights account;
  EXPECT_EQ(hid.open(nodes[0]).error, platform::HidOpenError::kNone);
  EXPECT_EQ(pauses, 3);
}

}  // namespace
}  // namespace vireon::tests
