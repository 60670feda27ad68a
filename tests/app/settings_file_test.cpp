#include "app/settings_file.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/fakes/fake_file_store.h"

namespace vireon::tests {
namespace {

using platform::FileReadError;
using platform::FileReplace;

class SettingsFileTest : public testing::Test {
 protected:
  const std::string file_ = "/opt/vireon/vireon.ini";
  FakeFileStore store_;
  app::SettingsFile settings_{store_};
};

TEST_F(SettingsFileTest, AFirstRunWritesOneKeyPerSection) {
  EXPECT_FALSE(settings_.fileExists(file_));

  EXPECT_TRUE(settings_.writeIni("System ID", "System ID", "K7310", file_));
  EXPECT_TRUE(settings_.writeIni("ProductId", "ProductId", "-8191", file_));

  EXPECT_TRUE(settings_.fileExists(file_));
  EXPECT_EQ(store_.files[file_], "[System ID]\r\nSystem ID=K7310\r\n[ProductId]\r\nProductId=-8191\r\n");
  EXPECT_EQ(settings_.readIni("ProductId", "ProductId", file_), "-8191");
}

TEST_F(SettingsFileTest, AValueThatIsThereIsNotWrittenAgain) {
  store_.files[file_] = "[Tabs]\nTabs = 2\n";

  EXPECT_TRUE(settings_.writeIni("Tabs", "Tabs", "2", file_));

  EXPECT_EQ(store_.replaces, 0U);
}

TEST_F(SettingsFileTest, AMissingFileReadsAsEmpty) {
  EXPECT_EQ(settings_.readIni("Tabs", "Tabs", file_), "");
}

TEST_F(SettingsFileTest, AFileThatVanishesBehindTheLookReadsAsEmpty) {
  store_.files[file_] = "[Tabs]\nTabs=2\n";
  store_.vanishAtRead = 1;

  EXPECT_TRUE(settings_.fileExists(file_));

  EXPECT_EQ(settings_.readIni("Tabs", "Tabs", file_), "");
}

TEST_F(SettingsFileTest, AFileThatCannotBeReadIsLeftAlone) {
  const std::string text = "[Tabs]\nTabs=2\n";
  for (const FileReadError error :
       {FileReadError::kNoPermission, FileReadError::kTooLarge, FileReadError::kFailed}) {
    store_.files[file_] = text;
    store_.readErrors = {{store_.reads + 1, error}, {store_.reads + 2, error}};

    EXPECT_EQ(settings_.readIni("Tabs", "Tabs", file_), "");
    EXPECT_FALSE(settings_.writeIni("Tabs", "Tabs", "1", file_));

    EXPECT_EQ(store_.replaces, 0U);
    EXPECT_EQ(store_.files[file_], text);
  }
}

TEST_F(SettingsFileTest, AFileOverTheLimitIsLeftAlone) {
  const std::string section = "[Tabs]\nTabs=2\n";
  store_.files[file_] = section + std::string(app::SettingsFile::kLongestFile - section.size(), '\n');

  EXPECT_EQ(settings_.readIni("Tabs", "Tabs", file_), "2");
  EXPECT_TRUE(settings_.writeIni("Tabs", "Tabs", "1", file_));
  EXPECT_FALSE(settings_.writeIni("Tabs", "Tabs", "10", file_)) << "it would not be read any more";
  EXPECT_EQ(store_.replaces, 1U);

  store_.files[file_] += '\n';
  EXPECT_EQ(settings_.readIni("Tabs", "Tabs", file_), "");
  EXPECT_FALSE(settings_.writeIni("Tabs", "Tabs", "2", file_));
  EXPECT_EQ(store_.replaces, 1U);
}

TEST_F(SettingsFileTest, AWriteThatFailsIsToldAndLeavesTheFile) {
  const std::string text = "[Tabs]\nTabs=2\n";
  for (const FileReplace result :
       {FileReplace::kNoPermission, FileReplace::kNoSpace, FileReplace::kNoFolder, FileReplace::kFailed}) {
    store_.files[file_] = text;
    store_.replaceErrors = {{store_.replaces + 1, result}};

    EXPECT_FALSE(settings_.writeIni("Tabs", "Tabs", "1", file_));

    EXPECT_EQ(settings_.readIni("Tabs", "Tabs", file_), "2");
  }
}

TEST_F(SettingsFileTest, AUtf16FileIsNeverWritten) {
  store_.files[file_] = "\xFF\xFE[Tabs]\nTabs=2\n";

  EXPECT_EQ(settings_.readIni("Tabs", "Tabs", file_), "");
  EXPECT_FALSE(settings_.writeIni("Tabs", "Tabs", "1", file_));

  EXPECT_EQ(store_.replaces, 0U);
}

TEST_F(SettingsFileTest, SeveralKeysAreWrittenTogetherOrNotAtAll) {
  EXPECT_TRUE(settings_.writeAll({{"ComPort", "ComPort", "3"}, {"BaudRate", "BaudRate", "1200"}}, file_));
  const std::string written = "[ComPort]\r\nComPort=3\r\n[BaudRate]\r\nBaudRate=1200\r\n";
  EXPECT_EQ(store_.files[file_], written);
  EXPECT_EQ(store_.replaces, 1U);
  store_.replaceErrors[2] = platform::FileReplace::kNoSpace;
  EXPECT_FALSE(settings_.writeAll({{"ComPort", "ComPort", "4"}, {"BaudRate", "BaudRate", "9600"}}, file_));
  EXPECT_FALSE(settings_.writeAll({{"ComPort", "ComPort", "4"}, {"Baud]", "Rate", "9600"}}, file_));
  EXPECT_EQ(store_.files[file_], written);
}

TEST_F(SettingsFileTest, AFileThatIsThereButWasNotFoundIsNotReplaced) {
  store_.files[file_] = "[Tabs]\r\nTabs=2\r\n";
  store_.readErrors[1] = platform::FileReadError::kNotFound;
  EXPECT_FALSE(settings_.writeIni("ComPort", "ComPort", "3", file_));
  EXPECT_EQ(store_.files[file_], "[Tabs]\r\nTabs=2\r\n");
}

}  // namespace
}  // namespace vireon::tests
