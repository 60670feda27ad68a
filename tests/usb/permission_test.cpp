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

TEST(UsbPermission, ANodeThatMayNotBeOpenedIsExplainedAndOpensOnceItMay) {
  const SimulatedDevice device;
  const std::string node = device.gadget.hostNode().value_or("");
  ASSERT_EQ(::chmod(node.c_str(), 0600), 0);
  UsbProgram usb;
  {
    const WithoutRights account;
    usb.program.load();
    const std::size_t before = usb.messages.count();
    usb.form().cmdBttn[0].click();
    usb.expectLost(before);
    EXPECT_EQ(usb.form().StatusBar1.panel(1), "No permission to open the instrument's device node");
    EXPECT_NE(usb.form().StatusBar1.toolTip(1).find("udev rule"), std::string::npos);

    ASSERT_EQ(::seteuid(0), 0);
    ASSERT_EQ(::chmod(node.c_str(), 0666), 0);
    ASSERT_EQ(::seteuid(kNobody), 0);
    usb.expectCleanReconnect();
    EXPECT_NE(usb.form().StatusBar1.panel(1), "No permission to open the instrument's device node");
  }
}

}  // namespace
}  // namespace vireon::tests
