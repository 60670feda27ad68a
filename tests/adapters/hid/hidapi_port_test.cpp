#include "adapters/hid/hidapi_port.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "tests/adapters/hid/fake_hidapi.h"

namespace vireon::tests {
namespace {

using platform::HidNode;
using platform::HidOpenError;
using platform::HidOpenResult;

class HidapiPortTest : public testing::Test {
 protected:
  std::vector<std::string> listedPaths() {
    std::vector<std::string> paths;
    for (const HidNode& node : port_.list()) paths.push_back(node.path);
    return paths;
  }

  FakeHidapi library_;
  adapters::HidapiPort port_{library_.probe(), library_.clock()};
  const HidNode node_{.path = "/dev/hidraw3", .vendorId = 0x10C4, .productId = 0xE001};
};

TEST_F(HidapiPortTest, ListsNoNodeWhereThereIsNone) {
  EXPECT_TRUE(port_.list().empty());
}

TEST_F(HidapiPortTest, ListsEachNodeWithItsIdentifiers) {
  library_.entries = {{"/dev/hidraw0", 0x046D, 0xC31C}, {"/dev/hidraw3", 0x10C4, 0xE001}};

  const std::vector<HidNode> nodes = port_.list();

  ASSERT_EQ(nodes.size(), 2U);
  EXPECT_EQ(nodes[0].path, "/dev/hidraw0");
  EXPECT_EQ(nodes[0].vendorId, 0x046D);
  EXPECT_EQ(nodes[0].productId, 0xC31C);
  EXPECT_EQ(nodes[1].path, "/dev/hidraw3");
  EXPECT_EQ(nodes[1].vendorId, 0x10C4);
  EXPECT_EQ(nodes[1].productId, 0xE001);
}

TEST_F(HidapiPortTest, ListsANodeOfManyUsagesOnce) {
  library_.entries = {{"/dev/hidraw1", 1, 1}, {"/dev/hidraw1", 1, 1}, {"/dev/hidraw1", 1, 1},
                      {"/dev/hidraw0", 2, 2}, {"/dev/hidraw0", 2, 2}, {"/dev/hidraw1", 1, 1}};

  EXPECT_EQ(listedPaths(), (std::vector<std::string>{"/dev/hidraw1", "/dev/hidraw0"}));
}

TEST_F(HidapiPortTest, ListsTwoNodesOfTheSameIdentifiers) {
  library_.entries = {{"/dev/hidraw1", 0x10C4, 0xE001}, {"/dev/hidraw2", 0x10C4, 0xE001}};

  EXPECT_EQ(listedPaths(), (std::vector<std::string>{"/dev/hidraw1", "/dev/hidraw2"}));
}

TEST_F(HidapiPortTest, LeavesOutAnEntryWithoutPath) {
  library_.entries = {{std::nullopt, 0x10C4, 0xE001}, {"/dev/hidraw2", 1, 1}};

  EXPECT_EQ(listedPaths(), (std::vector<std::string>{"/dev/hidraw2"}));
}

TEST_F(HidapiPortTest, OpensAnIntactNode) {
  const HidOpenResult opened = port_.open(node_);

  EXPECT_NE(opened.handle, nullptr);
  EXPECT_EQ(opened.error, HidOpenError::kNone);
  EXPECT_EQ(library_.probedPaths, (std::vector<std::string>{"/dev/hidraw3"}));
}

TEST_F(HidapiPortTest, NeverHandsANodeThatFailsItsCheckToTheLibrary) {
  for (const HidOpenError error :
       {HidOpenError::kNotFound, HidOpenError::kNoPermission, HidOpenError::kFailed}) {
    library_.probeError = error;

    const HidOpenResult opened = port_.open(node_);

    EXPECT_EQ(opened.handle, nullptr);
    EXPECT_EQ(opened.error, error);
    EXPECT_EQ(library_.openCalls, 0);
  }
}

class PatientHidapiPortTest : public testing::Test {
 protected:
  // The third pause ends the refusal.
  adapters::NodePatience patience(double age) {
    adapters::NodePatience patience;
    patience.age = [age](const std::string&) { return age; };
    patience.pause = [this] {
      if (++pauses_ == 3) library_.probeError = HidOpenError::kNone;
    };
    return patience;
  }

  FakeHidapi library_;
  int pauses_ = 0;
  const HidNode node_{.path = "/dev/hidraw3", .vendorId = 0x10C4, .productId = 0xE001};
};

TEST_F(PatientHidapiPortTest, AsksAFreshNodeThatRefusesAgain) {
  adapters::HidapiPort port(library_.probe(), library_.clock(), patience(0.5));
  library_.probeError = HidOpenError::kNoPermission;

  const HidOpenResult opened = port.open(node_);

  EXPECT_NE(opened.handle, nullptr);
  EXPECT_EQ(pauses_, 3);
  EXPECT_EQ(library_.openCalls, 1);
}

TEST_F(PatientHidapiPortTest, AsksAnOldNodeThatRefusesOnce) {
  adapters::HidapiPort port(library_.probe(), library_.clock(), patience(1.5));
  library_.probeError = HidOpenError::kNoPermission;

  EXPECT_EQ(port.open(node_).error, HidOpenError::kNoPermission);
  EXPECT_EQ(library_.probedPaths.size(), 1U);
}

TEST_F(PatientHidapiPortTest, AsksAFreshNodeWithAnotherTroubleOnce) {
  adapters::HidapiPort port(library_.probe(), library_.clock(), patience(0.5));
  library_.probeError = HidOpenError::kNotFound;

  EXPECT_EQ(port.open(node_).error, HidOpenError::kNotFound);
  EXPECT_EQ(library_.probedPaths.size(), 1U);
}

TEST_F(HidapiPortTest, ANodeThatVanishedSinceItWasListedIsNotFound) {
  library_.entries = {{"/dev/hidraw3", 0x10C4, 0xE001}};
  const std::vector<HidNode> nodes = port_.list();
  ASSERT_EQ(nodes.size(), 1U);
  library_.probeError = HidOpenError::kNotFound;

  const HidOpenResult opened = port_.open(nodes[0]);

  EXPECT_EQ(opened.handle, nullptr);
  EXPECT_EQ(opened.error, HidOpenError::kNotFound);
  EXPECT_EQ(library_.openCalls, 0);
}

TEST_F(HidapiPortTest, KeepsTheCheckedNodeOpenWhileTheLibraryOpensIt) {
  const HidOpenResult opened = port_.open(node_);

  EXPECT_TRUE(library_.heldDuringOpen);
  EXPECT_EQ(::fcntl(library_.probeDescriptor, F_GETFD), -1);
}

TEST_F(HidapiPortTest, TellsWhyTheLibraryCouldNotOpenACheckedNode) {
  library_.libraryOpens = false;
  library_.probeErrorAfterOpen = HidOpenError::kNotFound;

  const HidOpenResult opened = port_.open(node_);

  EXPECT_EQ(opened.handle, nullptr);
  EXPECT_EQ(opened.error, HidOpenError::kNotFound);
}

TEST_F(HidapiPortTest, FailsWhereTheLibraryCannotOpenANodeThatStaysIntact) {
  library_.libraryOpens = false;

  const HidOpenResult opened = port_.open(node_);

  EXPECT_EQ(opened.handle, nullptr);
  EXPECT_EQ(opened.error, HidOpenError::kFailed);
}

TEST_F(HidapiPortTest, OpensOneNodeTwice) {
  const HidOpenResult first = port_.open(node_);
  const HidOpenResult second = port_.open(node_);

  EXPECT_NE(first.handle, nullptr);
  EXPECT_NE(second.handle, nullptr);
  EXPECT_EQ(library_.openDevices, 2);
}

TEST_F(HidapiPortTest, AHandleClosesItsDevice) {
  HidOpenResult opened = port_.open(node_);
  ASSERT_EQ(library_.openDevices, 1);

  opened.handle.reset();

  EXPECT_EQ(library_.openDevices, 0);
}

TEST(HidapiPortLifeTest, InitialisesTheLibraryAndEndsIt) {
  FakeHidapi library;
  {
    const adapters::HidapiPort port(library.probe(), library.clock());
    EXPECT_EQ(library.initCalls, 1);
    EXPECT_EQ(library.exitCalls, 0);
  }
  EXPECT_EQ(library.exitCalls, 1);
}

TEST(HidapiPortLifeTest, AHandleMayOutliveThePort) {
  FakeHidapi library;
  auto port = std::make_unique<adapters::HidapiPort>(library.probe(), library.clock());
  HidOpenResult opened = port->open({.path = "/dev/hidraw0"});

  port.reset();
  EXPECT_EQ(library.exitCalls, 0);
  opened.handle.reset();

  EXPECT_EQ(library.exitCalls, 1);
  EXPECT_FALSE(library.closedAfterExit);
}

TEST(HidapiPortLifeTest, IsEmptyWhereTheLibraryDoesNotStart) {
  FakeHidapi library;
  library.initResult = -1;
  library.entries = {{"/dev/hidraw0", 1, 1}};
  {
    adapters::HidapiPort port(library.probe(), library.clock());

    EXPECT_TRUE(port.list().empty());
    EXPECT_EQ(port.open({.path = "/dev/hidraw0"}).error, HidOpenError::kFailed);
    EXPECT_EQ(library.openCalls, 0);
  }
  EXPECT_EQ(library.exitCalls, 0);
}

}  // namespace
}  // namespace vireon::tests
