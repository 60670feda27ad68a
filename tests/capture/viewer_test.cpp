#include "capture/viewer.h"

#include "capture/bmp_file.h"
#include "tests/capture/viewer_rig.h"

namespace vireon::tests {
namespace {

using platform::ViewerCommand;

const platform::Bitmap kOther{1, 1, {0xABCDEF}};

class Viewer : public ViewerRig {
 protected:
  void open(const platform::Bitmap& bitmap = kSmallPicture) { viewer.show(capture::mkBmpPic(bitmap)); }

  void expectNoPictureMessage() {
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastText(), "No Picture in Window.");
    EXPECT_EQ(messages.lastTitle(), "Capture Active Window");
    EXPECT_EQ(messages.shown[0].icon, platform::MessageIcon::kInformation);
  }
};

TEST_F(Viewer, ShowsTheCapturedPictureInItsWindow) {
  open();
  EXPECT_EQ(windows.made, 1U);
  EXPECT_EQ(windows.shows, 1U);
  EXPECT_EQ(windows.picture, kSmallPicture);
}

TEST_F(Viewer, IsOneWindowThatTheNextCaptureUses) {
  open();
  open(kOther);
  EXPECT_EQ(windows.made, 1U);
  EXPECT_EQ(windows.shows, 2U);
  EXPECT_EQ(windows.picture, kOther);
}

TEST_F(Viewer, IsMadeAnewAfterItWasClosed) {
  open();
  windows.close();
  EXPECT_FALSE(viewer.isOpen());
  EXPECT_TRUE(viewer.Picture1().empty());
  EXPECT_EQ(windows.alive, 0U);
  open(kOther);
  EXPECT_EQ(windows.made, 2U);
  EXPECT_EQ(windows.picture, kOther);
}

TEST_F(Viewer, AFailedCaptureGivesAMessageAndNoWindow) {
  open({});
  EXPECT_EQ(windows.made, 0U);
  EXPECT_EQ(messages.lastText(), "The active window's picture could not be taken.");
}

TEST_F(Viewer, AFailedCaptureLeavesThePictureOnShow) {
  open();
  open({});
  EXPECT_EQ(windows.picture, kSmallPicture);
  EXPECT_EQ(messages.count(), 1U);
}

TEST_F(Viewer, TakesItsPicturesSizeWithRoomForTitleMenuAndFrame) {
  open();
  ASSERT_EQ(windows.sizes.size(), 1U);
  EXPECT_EQ(windows.sizes[0], (platform::WindowSize{2 * 15 + 100, 3 * 15 + 800}));
}

TEST_F(Viewer, TakesItsPicturesSizeAgainAtEachResize) {
  open();
  windows.latest->onResize();
  ASSERT_EQ(windows.sizes.size(), 2U);
  EXPECT_EQ(windows.sizes[1], windows.sizes[0]);
}

TEST_F(Viewer, IsNotLargerThanTheScreen) {
  windows.screen = {120, 5000};
  open();
  EXPECT_EQ(windows.sizes.back(), (platform::WindowSize{120, 3 * 15 + 800}));
  windows.screen = {5000, 840};
  open();
  EXPECT_EQ(windows.sizes.back(), (platform::WindowSize{130, 840}));
}

TEST_F(Viewer, ClearingRemovesThePictureAndKeepsTheWindow) {
  open();
  windows.choose(ViewerCommand::kClear);
  EXPECT_TRUE(windows.picture.empty());
  EXPECT_TRUE(viewer.Picture1().empty());
  EXPECT_TRUE(viewer.isOpen());
  EXPECT_EQ(windows.sizes.size(), 1U);
}

TEST_F(Viewer, ExitUnloadsIt) {
  open();
  windows.choose(ViewerCommand::kExit);
  EXPECT_FALSE(viewer.isOpen());
  EXPECT_EQ(windows.alive, 0U);
}

TEST_F(Viewer, CopiesThePictureToTheClipboard) {
  open();
  windows.choose(ViewerCommand::kCopy);
  ASSERT_EQ(clipboard.pictures.size(), 1U);
  EXPECT_EQ(clipboard.pictures[0], kSmallPicture);
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(Viewer, WithoutAPictureTheClipboardKeepsWhatItHas) {
  open();
  windows.choose(ViewerCommand::kClear);
  windows.choose(ViewerCommand::kCopy);
  EXPECT_TRUE(clipboard.pictures.empty());
  expectNoPictureMessage();
}

TEST_F(Viewer, PrintsThePictureFittedToThePage) {
  open();
  windows.choose(ViewerCommand::kPrint);
  ASSERT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(printer.jobs[0].title, "Captured window");
  ASSERT_EQ(printer.pages.size(), 1U);
  ASSERT_EQ(printer.pages[0].pictures.size(), 1U);
  EXPECT_EQ(printer.pages[0].pictures[0].bitmap, kSmallPicture);
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(Viewer, ClearingAndThenPrintingGivesTheMessageAndPrintsNothing) {
  open();
  windows.choose(ViewerCommand::kClear);
  windows.choose(ViewerCommand::kPrint);
  expectNoPictureMessage();
  EXPECT_TRUE(printer.jobs.empty());
}

TEST_F(Viewer, WithoutAPrinterThePictureBecomesAPdfAndOneMessageSaysWhere) {
  printer.installed = false;
  open();
  windows.choose(ViewerCommand::kPrint);
  EXPECT_EQ(files.files.count("folder/Picture_071221_140509.pdf"), 1U);
  ASSERT_EQ(messages.count(), 1U);
  EXPECT_NE(messages.lastText().find("folder/Picture_071221_140509.pdf"), std::string::npos);
}

TEST_F(Viewer, ClearingAndPrintingWithoutAPrinterWritesNoFile) {
  printer.installed = false;
  open();
  windows.choose(ViewerCommand::kClear);
  windows.choose(ViewerCommand::kPrint);
  expectNoPictureMessage();
  EXPECT_TRUE(files.files.empty());
}

}  // namespace
}  // namespace vireon::tests
