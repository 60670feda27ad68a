#include "adapters/hid/hidapi_library.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "adapters/hid/hidapi_port.h"

namespace vireon::tests {
namespace {

using platform::HidNode;
using platform::HidOpenError;
using platform::HidOpenResult;

TEST(HidapiLibraryTest, IsTheSharedLibraryOnTheHidrawBackend) {
  const adapters::HidapiLibrary library;
  ASSERT_TRUE(library.ready());

  Dl_info origin{};
  ASSERT_NE(::dladdr(reinterpret_cast<const void*>(&hid_open_path), &origin), 0);

  EXPECT_NE(std::string(origin.dli_fname).find("libhidapi-hidraw.so"), std::string::npos) << origin.dli_fname;
}

TEST(HidapiLibraryTest, ListsEveryNodeOfThisMachineOnce) {
  adapters::HidapiPort port;

  std::set<std::string> paths;
  const std::vector<HidNode> nodes = port.list();
  for (const HidNode& node : nodes) {
    EXPECT_TRUE(std::filesystem::exists(node.path)) << node.path;
    paths.insert(node.path);
  }

  EXPECT_EQ(paths.size(), nodes.size());
  RecordProperty("nodes", static_cast<int>(nodes.size()));
}

TEST(HidapiLibraryTest, OpeningWhatIsNoHidNodeFailsCleanly) {
  adapters::HidapiPort port;
  for (const std::string path : {"", "/dev/null", "/dev", "/dev/hidraw-missing", "/etc/passwd"}) {
    const HidOpenResult opened = port.open({.path = path});

    EXPECT_EQ(opened.handle, nullptr) << path;
    EXPECT_EQ(opened.error, HidOpenError::kNotFound) << path;
  }
}

TEST(HidapiLibraryTest, TellsOfANodeThatIsClosedToThisAccount) {
  adapters::HidapiPort port([](const std::string&) {
    return adapters::NodeCheck{.error = HidOpenError::kNoPermission, .reportDescriptor = {}, .heldOpen = {}};
  });

  const HidOpenResult opened = port.open({.path = "/dev/hidraw0"});

  EXPECT_EQ(opened.handle, nullptr);
  EXPECT_EQ(opened.error, HidOpenError::kNoPermission);
}

TEST(HidapiLibraryTest, TellsOfANodeThatVanishesWhileTheLibraryOpensIt) {
  int looks = 0;
  adapters::HidapiPort port([&looks](const std::string&) {
    ++looks;
    return adapters::NodeCheck{.error = looks == 1 ? HidOpenError::kNone : HidOpenError::kNotFound,
                               .reportDescriptor = {},
                               .heldOpen = {}};
  });

  const HidOpenResult opened = port.open({.path = "/dev/hidraw-missing"});

  EXPECT_EQ(opened.handle, nullptr);
  EXPECT_EQ(opened.error, HidOpenError::kNotFound);
}

}  // namespace
}  // namespace vireon::tests
