#include "files/file_names.h"

#include <gtest/gtest.h>

#include <string>

#include "form/main_form.h"
#include "tests/fakes/fake_file_store.h"
#include "tests/fakes/fake_wall_clock.h"

namespace vireon::files {
namespace {

TEST(DateTimeText, HasTwoDigitsOfEachPart) {
  EXPECT_EQ(dateTimeText({2007, 12, 21, 15, 30, 12}), "071221_153012");
  EXPECT_EQ(dateTimeText({2100, 1, 2, 3, 4, 5}), "000102_030405");
}

TEST(BaseName, StandsBetweenTheLastSeparatorAndTheFirstDot) {
  EXPECT_EQ(baseNameOf("/home/me/a.b.wfm"), "a");
  EXPECT_EQ(baseNameOf("/home.d/me/name"), "name");
  EXPECT_EQ(baseNameOf("name.wfm"), "name");
  EXPECT_EQ(baseNameOf("/home/.hidden"), "");
  EXPECT_EQ(baseNameOf(""), "");
}

TEST(Extension, IsBehindTheLastDotInSmallLetters) {
  EXPECT_EQ(extensionOf("/a.d/b.c.WFM"), ".wfm");
  EXPECT_EQ(extensionOf("/a.d/b"), "");
}

TEST(AllowedName, HasNoSeparatorNoTwoDotsAndNoControlCharacter) {
  for (const char* name : {"Wfm_071221_153012", "a.b", "a b", ".a", "µ 한글", "", "a\xC2\xA0"}) {
    EXPECT_TRUE(isAllowedName(name)) << name;
  }
  for (const char* name :
       {"/a", "a/b", "a\\b", "..", "a..b", "../a", "a\n", "a\tb", "\x7F", "\x1A", "\xC2\x81"}) {
    EXPECT_FALSE(isAllowedName(name)) << name;
  }
  EXPECT_FALSE(isAllowedName(std::string("a\0b", 3)));
}

TEST(FindFile, TakesTheExactNameFirst) {
  tests::FakeFileStore files;
  files.files = {{"f/TEST.wfm", ""}, {"f/test.wfm", ""}};
  EXPECT_EQ(findFile(files, "f", "test.wfm"), "f/test.wfm");
}

TEST(FindFile, TakesANameThatDiffersInTheCaseOfLettersAlone) {
  tests::FakeFileStore files;
  files.files = {{"f/Test.WFM", ""}, {"f/M\xC3\x9CLL.txt", ""}, {"g/other.wfm", ""}};
  EXPECT_EQ(findFile(files, "f", "tEST.wfm"), "f/Test.WFM");
  EXPECT_EQ(findFile(files, "f", "m\xC3\xBCll.txt"), "f/M\xC3\x9CLL.txt");
  EXPECT_EQ(findFile(files, "f", "other.wfm"), "f/other.wfm");
}

class FileNameBoxTest : public testing::Test {
 protected:
  form::MainForm form_;
  tests::FakeFileStore files_;
  tests::FakeWallClock clock_{{2007, 12, 21, 15, 30, 12}};
  FileNameBox name_{form_.txtFn[0], files_, clock_, "folder"};
  form::TextBox& box_ = form_.txtFn[0];
};

TEST_F(FileNameBoxTest, ThePlaceholderAndBlanksCountAsEmpty) {
  EXPECT_EQ(box_.text(), "File Name");
  for (const char* text : {"File Name", "", "  "}) {
    box_.setText(text);
    EXPECT_TRUE(name_.empty()) << text;
    EXPECT_EQ(name_.name(), "") << text;
  }
  for (const char* text : {"file name", "File Name ", "x"}) {
    box_.setText(text);
    EXPECT_FALSE(name_.empty()) << text;
    EXPECT_EQ(name_.name(), text);
  }
}

TEST_F(FileNameBoxTest, IsEmptiedOfThePlaceholderAlone) {
  name_.clearPlaceholder();
  EXPECT_EQ(box_.text(), "");
  box_.setText("mine");
  name_.clearPlaceholder();
  EXPECT_EQ(box_.text(), "mine");
}

TEST_F(FileNameBoxTest, MakesANameFromDateAndTime) {
  name_.make("Wfm_", ".wfm");
  EXPECT_EQ(box_.text(), "Wfm_071221_153012");
  EXPECT_TRUE(name_.isMade());
}

TEST_F(FileNameBoxTest, MakesANameThatNoFileHas) {
  files_.files = {{"folder/Wfm_071221_153012.wfm", ""}, {"folder/Wfm_071221_153012_2.wfm", ""}};
  name_.make("Wfm_", ".wfm");
  EXPECT_EQ(name_.name(), "Wfm_071221_153012_3");
  name_.make("Wfm_", ".txt");
  EXPECT_EQ(name_.name(), "Wfm_071221_153012");
}

TEST_F(FileNameBoxTest, AMadeNameIsTheUsersOnceItWasEdited) {
  name_.make("Wfm_", ".wfm");
  box_.setText("Wfm_071221_15301");
  box_.setText("Wfm_071221_153012");
  EXPECT_FALSE(name_.isMade());
}

TEST_F(FileNameBoxTest, AChosenFilesNameIsNotMade) {
  name_.make("Wfm_", ".wfm");
  name_.show("Wfm_071221_153012");
  EXPECT_FALSE(name_.isMade());
}

TEST_F(FileNameBoxTest, ATypedNameKeepsLettersThatTheBoxHasNoCodeFor) {
  box_.type("日本");
  EXPECT_EQ(name_.name(), "日本");
  box_.type("中国");
  EXPECT_EQ(name_.name(), "中国");
}

TEST_F(FileNameBoxTest, AChosenFilesNameGivesWayToOneTypedOfOtherSuchLetters) {
  name_.make("Wfm_", ".wfm");
  name_.show("日本");
  box_.type("中国");
  EXPECT_EQ(name_.name(), "中国");
  EXPECT_FALSE(name_.isMade());
}

TEST_F(FileNameBoxTest, AChosenFilesNameStaysWhatItIsUntilItIsEdited) {
  name_.show("한 µ");
  EXPECT_EQ(box_.text(), "? \xB5");
  EXPECT_EQ(name_.name(), "한 µ");
  box_.setText("? \xB5x");
  EXPECT_EQ(name_.name(), "? µx");
}

}  // namespace
}  // namespace vireon::files
