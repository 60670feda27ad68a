#include <gtest/gtest.h>

#include "protocol/reply_text.h"
#include "tests/usb/simulated_device.h"
#include "tests/usb/usb_program.h"

namespace vireon::tests {
namespace {

using simulator::Model;

class UsbSearchOf : public testing::TestWithParam<Model> {};

TEST_P(UsbSearchOf, AModelIsFoundByItsProductAndNamesItself) {
  const SimulatedDevice device(GetParam());
  UsbProgram usb;
  usb.load();
  EXPECT_EQ(protocol::trimmed(usb.program.state.modelId), simulator::identity(GetParam()));
  EXPECT_EQ(static_cast<std::uint16_t>(usb.program.link.usbProductId), simulator::usbProductId(GetParam()));
  usb.connect();
  EXPECT_EQ(usb.messages.count(), 0U);
}

INSTANTIATE_TEST_SUITE_P(, UsbSearchOf,
                         testing::Values(Model::kK7310, Model::kK7210, Model::kK7201, Model::kK7900),
                         [](const auto& model) { return std::string(simulator::identity(model.param)); });

TEST(UsbSearch, AForeignVendorsDeviceIsLeftAlone) {
  Gadget foreign({.vendor = 0x1209, .product = 0xE001});
  foreign.plug();
  UsbProgram first;
  EXPECT_FALSE(first.program.Form_Load());
  EXPECT_EQ(first.messages.lastTitle(), "Device Not Found");

  UsbProgram usb;
  usb.loadWithSettings();
  usb.form().cmdBttn[0].click();
  usb.expectLost();
}

TEST(UsbSearch, AnotherProductOfTheVendorIsPassedOver) {
  Gadget before({.product = 0xEA60}, 0);
  before.plug();
  const SimulatedDevice device(Model::kK7310, 1);
  Gadget after({.product = 0xEA60}, 2);
  after.plug();
  UsbProgram usb;
  ASSERT_EQ(usb.hid.list().size(), 3U);
  usb.load();
  usb.connect();
  const std::string node = device.gadget.hostNode().value_or("");
  EXPECT_EQ(openHostNodes(), (std::vector<std::string>{node, node}));
}

TEST(UsbSearch, OfTwoEqualInstrumentsTheOneListedFirstIsDriven) {
  SimulatedDevice first(Model::kK7310, 0);
  SimulatedDevice second(Model::kK7310, 1);
  UsbProgram usb;
  const auto nodes = usb.hid.list();
  ASSERT_EQ(nodes.size(), 2U);
  usb.load();
  usb.connect();
  EXPECT_EQ(openHostNodes(), (std::vector<std::string>{nodes[0].path, nodes[0].path}));
  const bool firstListed = first.gadget.hostNode() == nodes[0].path;
  const std::vector<std::string> asked{"SID??;SIM??", "DFN??"};
  EXPECT_EQ((firstListed ? first : second).lastCommands(), asked);
  EXPECT_EQ((firstListed ? second : first).lastCommands(), std::vector<std::string>{});
}

TEST(UsbSearch, OfTwoModelsTheOneWithTheLowerProductIsDriven) {
  const SimulatedDevice higher(Model::kK7900, 0);
  const SimulatedDevice lower(Model::kK7310, 1);
  UsbProgram usb;
  usb.load();
  EXPECT_EQ(protocol::trimmed(usb.program.state.modelId), "K7310");
}

TEST(UsbSearch, AnInstrumentPluggedInAfterTheStartIsFoundByTheConnectButton) {
  UsbProgram usb;
  usb.loadWithSettings(Model::kK7210);
  const SimulatedDevice device(Model::kK7210);
  usb.connect();
  EXPECT_EQ(usb.messages.count(), 0U);
}

}  // namespace
}  // namespace vireon::tests
