#include "capture/bmp_file.h"
#include "tests/capture/viewer_rig.h"

namespace vireon::tests {
namespace {

using platform::FileReadError;
using platform::FileReplace;
using platform::ViewerCommand;

const platform::Bitmap kOtherPicture{3, 1, {0xABCDEF, 0, 0xFFFFFF}};

class ViewerFiles : public ViewerRig {
 protected:
  ViewerFiles() { viewer.show(capture::mkBmpPic(kSmallPicture)); }

  void choose(ViewerCommand command, const std::string& name) {
    dialogs.answer = name;
    windows.choose(command);
  }

  void expectRefused(const std::string& why) {
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastTitle(), "Capture Window");
    EXPECT_EQ(messages.lastText(), "The picture was not opened:\na.bmp\n\n" + why);
    EXPECT_EQ(windows.picture, kSmallPicture);
    EXPECT_EQ(windows.sizes.size(), 1U);
  }
};

TEST_F(ViewerFiles, SavingAsksWithTheBitmapFilterAndExtension) {
  choose(ViewerCommand::kSave, "");
  ASSERT_EQ(dialogs.saved.size(), 1U);
  EXPECT_EQ(dialogs.saved[0].filter, "Bitmap Image (*.bmp)|*.bmp");
  EXPECT_EQ(dialogs.saved[0].defaultExtension, ".BMP");
  EXPECT_FALSE(dialogs.saved[0].staysInFolder);
}

TEST_F(ViewerFiles, OpeningAsksWithTheSameFilterAndExtension) {
  choose(ViewerCommand::kOpen, "");
  ASSERT_EQ(dialogs.opened.size(), 1U);
  EXPECT_EQ(dialogs.opened[0].filter, "Bitmap Image (*.bmp)|*.bmp");
  EXPECT_EQ(dialogs.opened[0].defaultExtension, ".BMP");
}

TEST_F(ViewerFiles, ACancelledDialogDoesNothing) {
  choose(ViewerCommand::kSave, "");
  choose(ViewerCommand::kOpen, "");
  EXPECT_EQ(files.replaces, 0U);
  EXPECT_EQ(files.reads, 0U);
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(windows.picture, kSmallPicture);
}

TEST_F(ViewerFiles, SavesABitmapFile) {
  choose(ViewerCommand::kSave, "a.BMP");
  EXPECT_EQ(capture::readBmp(files.files.at("a.BMP")).bitmap, kSmallPicture);
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(ViewerFiles, SavesPngWhereTheNameEndsInIt) {
  for (const char* name : {"a.png", "b.PNG", "c.bmp.Png", ".png"}) {
    choose(ViewerCommand::kSave, name);
    EXPECT_EQ(files.files.at(name), "PNG 2x3") << name;
  }
}

TEST_F(ViewerFiles, SavesABitmapFileUnderEveryOtherName) {
  for (const char* name : {"a.png.bmp", "apng", "png", "a.jpg", "a", "a.pngx"}) {
    choose(ViewerCommand::kSave, name);
    EXPECT_TRUE(files.files.at(name).starts_with("BM")) << name;
  }
}

TEST_F(ViewerFiles, SavingWithoutAPictureGivesTheMessageAndAsksForNoName) {
  windows.choose(ViewerCommand::kClear);
  choose(ViewerCommand::kSave, "a.bmp");
  EXPECT_TRUE(dialogs.saved.empty());
  EXPECT_TRUE(files.files.empty());
  ASSERT_EQ(messages.count(), 1U);
  EXPECT_EQ(messages.lastText(), "No Picture in Window.");
}

TEST_F(ViewerFiles, AFailedSaveGivesOneMessageWithTheReason) {
  const std::pair<FileReplace, const char*> kFailures[] = {
      {FileReplace::kNoPermission, "This account may not write there."},
      {FileReplace::kNoSpace, "There is no space left."},
      {FileReplace::kNoFolder, "The folder does not exist."},
      {FileReplace::kFailed, "The disk or the folder does not take it."}};
  std::size_t save = 0;
  for (const auto& [failure, reason] : kFailures) {
    files.replaceErrors[++save] = failure;
    choose(ViewerCommand::kSave, "a.bmp");
    ASSERT_EQ(messages.count(), save);
    EXPECT_EQ(messages.lastTitle(), "Capture Window");
    EXPECT_EQ(messages.lastText(), std::string("The file was not saved:\na.bmp\n\n") + reason);
  }
}

TEST_F(ViewerFiles, APngThatCannotBeMadeIsAFailedSave) {
  png.works = false;
  choose(ViewerCommand::kSave, "a.png");
  EXPECT_EQ(messages.count(), 1U);
  EXPECT_EQ(files.replaces, 0U);
}

TEST_F(ViewerFiles, OpensABitmapFileAndTakesItsSize) {
  files.files["a.bmp"] = capture::bmpFile(kOtherPicture);
  choose(ViewerCommand::kOpen, "a.bmp");
  EXPECT_EQ(windows.picture, kOtherPicture);
  EXPECT_EQ(viewer.Picture1().palette, 0U);
  ASSERT_EQ(windows.sizes.size(), 2U);
  EXPECT_EQ(windows.sizes[1], (platform::WindowSize{3 * 15 + 100, 15 + 800}));
}

TEST_F(ViewerFiles, AFileThatCannotBeReadGivesAMessageAndLeavesThePicture) {
  const std::pair<FileReadError, const char*> kFailures[] = {
      {FileReadError::kNotFound, "There is no file of this name."},
      {FileReadError::kNoPermission, "This account may not read it."},
      {FileReadError::kTooLarge, "It is too large."},
      {FileReadError::kFailed, "It cannot be read."}};
  std::size_t read = 0;
  for (const auto& [failure, reason] : kFailures) {
    files.readErrors[++read] = failure;
    messages.shown.clear();
    choose(ViewerCommand::kOpen, "a.bmp");
    expectRefused(reason);
  }
}

TEST_F(ViewerFiles, AFileThatIsNoBitmapSaysSo) {
  files.files["a.bmp"] = "\x89PNG\r\n";
  choose(ViewerCommand::kOpen, "a.bmp");
  expectRefused("It is not a bitmap file.");
}

TEST_F(ViewerFiles, ADamagedBitmapSaysSo) {
  files.files["a.bmp"] = capture::bmpFile(kOtherPicture).substr(0, 60);
  choose(ViewerCommand::kOpen, "a.bmp");
  expectRefused("The file is damaged.");
}

TEST_F(ViewerFiles, AnUnknownKindOfBitmapSaysSo) {
  std::string file = capture::bmpFile(kOtherPicture);
  file[30] = 4;  // a JPEG inside
  files.files["a.bmp"] = file;
  choose(ViewerCommand::kOpen, "a.bmp");
  expectRefused("This kind of bitmap file cannot be shown.");
}

TEST_F(ViewerFiles, AHugePictureSaysSo) {
  std::string file = capture::bmpFile(kOtherPicture);
  file[20] = file[24] = 127;  // the third byte of width and height
  files.files["a.bmp"] = file;
  choose(ViewerCommand::kOpen, "a.bmp");
  expectRefused("Its picture is too large.");
}

}  // namespace
}  // namespace vireon::tests
