#include "adapters/hid/node_probe.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/fakes/unprivileged.h"

namespace vireon::tests {
namespace {

using adapters::openErrorOf;
using adapters::probeHidrawNode;
using platform::HidOpenError;

class NodeProbeTest : public testing::Test {
 protected:
  NodeProbeTest() {
    std::string pattern = (std::filesystem::temp_directory_path() / "node_probe_XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
  }
  ~NodeProbeTest() override {
    std::filesystem::permissions(folder_, std::filesystem::perms::owner_all);
    std::filesystem::remove_all(folder_);
  }

  std::filesystem::path folder_;
};

HidOpenError errorFor(const std::string& path) {
  const adapters::NodeCheck check = probeHidrawNode(path);
  EXPECT_FALSE(check.heldOpen.isOpen()) << path;
  EXPECT_TRUE(check.reportDescriptor.empty()) << path;
  return check.error;
}

TEST_F(NodeProbeTest, WhatIsNoHidNodeIsNotFound) {
  const std::filesystem::path file = folder_ / "file";
  std::ofstream(file) << "text";
  const std::filesystem::path pipe = folder_ / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);

  EXPECT_EQ(errorFor(""), HidOpenError::kNotFound);
  EXPECT_EQ(errorFor(folder_ / "missing"), HidOpenError::kNotFound);
  EXPECT_EQ(errorFor(folder_ / "missing" / "deeper"), HidOpenError::kNotFound);
  EXPECT_EQ(errorFor(file / "below"), HidOpenError::kNotFound);
  EXPECT_EQ(errorFor(folder_), HidOpenError::kNotFound);
  EXPECT_EQ(errorFor(file), HidOpenError::kNotFound);
  EXPECT_EQ(errorFor(pipe), HidOpenError::kNotFound);
  EXPECT_EQ(errorFor("/dev/null"), HidOpenError::kNotFound);
}

TEST_F(NodeProbeTest, ANodeThatIsClosedToThisAccountHasNoPermission) {
  const std::filesystem::path node = folder_ / "node";
  std::ofstream(node) << "text";
  std::filesystem::permissions(folder_, std::filesystem::perms::none);

  const Unprivileged account;

  EXPECT_EQ(errorFor(node), HidOpenError::kNoPermission);
}

TEST(OpenErrorTest, EveryReasonIsOneOfThree) {
  for (const int value : {EACCES, EPERM}) EXPECT_EQ(openErrorOf(value), HidOpenError::kNoPermission) << value;
  for (const int value : {ENOENT, ENOTDIR, ENODEV, ENXIO}) {
    EXPECT_EQ(openErrorOf(value), HidOpenError::kNotFound) << value;
  }
  for (const int value : {EMFILE, ENFILE, ENOMEM, EIO, EBUSY, EROFS}) {
    EXPECT_EQ(openErrorOf(value), HidOpenError::kFailed) << value;
  }
}

}  // namespace
}  // namespace vireon::tests
