#include "adapters/qt/program_places.h"

#include <gtest/gtest.h>

#include <QSerialPortInfo>
#include <filesystem>

#include "tests/fakes/temporary_folder.h"
#include "tests/fakes/unprivileged.h"

namespace vireon::tests {
namespace {

namespace fs = std::filesystem;
using adapters::comDevice;
using adapters::programFolder;

class ComDevice : public testing::Test {
 protected:
  QString device(int com) const { return comDevice(com, folder_.path().string(), listed_); }

  TemporaryFolder folder_;
  QStringList listed_;
};

TEST_F(ComDevice, IsWhatTheLinkOfItsNamePointsTo) {
  fs::create_symlink("/dev/null", folder_.file("COM2"));
  EXPECT_EQ(device(2), QStringLiteral("/dev/null"));
  EXPECT_EQ(device(1), QString());
}

TEST_F(ComDevice, IsTheEndOfAChainOfLinks) {
  fs::create_symlink("/dev/null", folder_.file("adapter"));
  fs::create_symlink("adapter", folder_.file("COM1"));
  EXPECT_EQ(device(1), QStringLiteral("/dev/null"));
}

TEST_F(ComDevice, ALinkThatLeadsNowhereStillNamesItsDevice) {
  listed_ = {QStringLiteral("/dev/ttyS0")};
  fs::create_symlink("/dev/vireon-nothing", folder_.file("COM1"));
  EXPECT_EQ(device(1), QStringLiteral("/dev/vireon-nothing"));
}

TEST_F(ComDevice, WithoutLinksIsTheListedOneOfItsNumber) {
  listed_ = {QStringLiteral("/dev/ttyUSB0"), QStringLiteral("/dev/ttyS0")};
  EXPECT_EQ(device(1), QStringLiteral("/dev/ttyUSB0"));
  EXPECT_EQ(device(2), QStringLiteral("/dev/ttyS0"));
  EXPECT_EQ(device(3), QString());
  EXPECT_EQ(device(0), QString());
}

TEST_F(ComDevice, ALinkStandsBeforeTheListAndMovesNothingInIt) {
  listed_ = {QStringLiteral("/dev/ttyUSB0"), QStringLiteral("/dev/ttyS0")};
  fs::create_symlink("/dev/null", folder_.file("COM1"));
  EXPECT_EQ(device(1), QStringLiteral("/dev/null"));
  EXPECT_EQ(device(2), QStringLiteral("/dev/ttyS0"));
}

TEST_F(ComDevice, AFileOfThatNameIsNoLink) {
  listed_ = {QStringLiteral("/dev/ttyS0")};
  writeFile(folder_.file("COM1"), "");
  EXPECT_EQ(device(1), QStringLiteral("/dev/ttyS0"));
}

TEST_F(ComDevice, AFolderWithAnUnusualNameIsReadAsUtf8) {
  const std::string folder = folder_.file("d\xC3\xA9p\xC3\xB4t %1");
  fs::create_directory(folder);
  fs::create_symlink("/dev/null", folder + "/COM1");
  EXPECT_EQ(comDevice(1, folder, {}), QStringLiteral("/dev/null"));
}

TEST(SerialDevices, AreAllThatTheSystemListsUsbAdaptersFirst) {
  const QStringList devices = adapters::serialDevices();
  EXPECT_EQ(devices.size(), QSerialPortInfo::availablePorts().size());
  const auto isUsb = [](const QString& device) {
    return device.contains(QLatin1String("ttyUSB")) || device.contains(QLatin1String("ttyACM"));
  };
  EXPECT_TRUE(std::is_partitioned(devices.begin(), devices.end(), isUsb));
}

class ProgramFolder : public testing::Test {
 protected:
  std::string chosen() const {
    return programFolder(QString::fromStdString(executables_), QString::fromStdString(userData_));
  }

  TemporaryFolder folder_;
  const std::string executables_ = folder_.file("portable");
  const std::string userData_ = folder_.file("share/deep/vireon");
};

TEST_F(ProgramFolder, IsTheExecutablesOwnWhereThatIsWritable) {
  fs::create_directory(executables_);
  EXPECT_EQ(chosen(), executables_);
  EXPECT_FALSE(fs::exists(userData_));
}

TEST_F(ProgramFolder, IsTheUsersWhereTheExecutablesIsNotWritableAndIsMade) {
  fs::create_directory(executables_);
  fs::permissions(executables_, fs::perms(0555));
  fs::permissions(folder_.path(), fs::perms(0777));
  const Unprivileged account;
  EXPECT_EQ(chosen(), userData_);
  EXPECT_TRUE(fs::is_directory(userData_));
}

TEST_F(ProgramFolder, IsTheUsersForAnInstalledProgramOfAnAccountThatMayWriteEverywhere) {
  const std::string installed = folder_.file("bin");
  fs::create_directory(installed);
  EXPECT_EQ(programFolder(QString::fromStdString(installed), QString::fromStdString(userData_)), userData_);
  EXPECT_TRUE(fs::is_directory(userData_));
}

TEST_F(ProgramFolder, IsTheUsersAlsoWhereThatIsThereAlready) {
  fs::create_directories(userData_);
  EXPECT_EQ(chosen(), userData_);
}

TEST_F(ProgramFolder, OfTheRunningProgramIsItsOwn) {
  EXPECT_EQ(programFolder(), fs::canonical("/proc/self/exe").parent_path().string());
}

}  // namespace
}  // namespace vireon::tests
