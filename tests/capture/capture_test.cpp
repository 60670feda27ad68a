#include "capture/capture.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_screen_grab.h"

namespace vireon::tests {
namespace {

constexpr platform::WindowHandle kOurs = 7;
constexpr platform::WindowHandle kTheirs = 9;

class Capture : public testing::Test {
 protected:
  Capture() {
    screen.windows = {{kOurs, {100, 50, 140, 80}}, {kTheirs, {-10, 200, 25, 260}}};
    screen.foreground = kOurs;
  }

  FakeScreenGrab screen;
};

TEST_F(Capture, TheActiveWindowIsTakenWholeWithItsFrame) {
  const capture::Picture picture = capture::capActWnd(screen);
  EXPECT_EQ(picture.bitmap.width, 40);
  EXPECT_EQ(picture.bitmap.height, 30);
  EXPECT_EQ(picture.bitmap.at(0, 0), FakeScreenGrab::pixel(kOurs, 0, 0));
  EXPECT_EQ(picture.bitmap.at(39, 29), FakeScreenGrab::pixel(kOurs, 39, 29));
}

TEST_F(Capture, AnotherProgramsWindowIsTakenWhereItHasTheInput) {
  screen.foreground = kTheirs;
  const capture::Picture picture = capture::capActWnd(screen);
  EXPECT_EQ(picture.bitmap.width, 35);
  EXPECT_EQ(picture.bitmap.height, 60);
  EXPECT_EQ(picture.bitmap.at(3, 20), FakeScreenGrab::pixel(kTheirs, 3, 20));
}

TEST_F(Capture, ACapturedPictureCarriesPaletteZero) {
  EXPECT_EQ(capture::capActWnd(screen).palette, 0U);
}

TEST_F(Capture, APictureKeepsTheBitmapAndThePaletteThatItIsMadeOf) {
  const capture::Picture picture = capture::mkBmpPic({1, 2, {3, 4}}, 5);
  EXPECT_EQ(picture.bitmap, (platform::Bitmap{1, 2, {3, 4}}));
  EXPECT_EQ(picture.palette, 5U);
}

TEST_F(Capture, APartIsCountedFromTheFrameOrFromTheClientArea) {
  EXPECT_EQ(capture::capWnd(screen, kOurs, false, 5, 6, 2, 2).bitmap.at(1, 1),
            FakeScreenGrab::pixel(kOurs, 6, 7));
  EXPECT_EQ(capture::capWnd(screen, kOurs, true, 5, 6, 2, 2).bitmap.at(0, 0),
            FakeScreenGrab::pixel(kOurs, 5 + FakeScreenGrab::kFrameLeft, 6 + FakeScreenGrab::kFrameTop));
}

TEST_F(Capture, WithoutAWindowInFrontThePictureIsEmpty) {
  screen.foreground = platform::kNoWindow;
  EXPECT_TRUE(capture::capActWnd(screen).empty());
  EXPECT_EQ(screen.grabs, 0U);
}

TEST_F(Capture, AWindowThatVanishesGivesAnEmptyPicture) {
  screen.windows.erase(kOurs);
  EXPECT_TRUE(capture::capActWnd(screen).empty());
  EXPECT_TRUE(capture::capWnd(screen, kOurs, false, 0, 0, 10, 10).empty());
}

TEST_F(Capture, AWindowThatCannotBeReadGivesAnEmptyPicture) {
  screen.readable = false;
  EXPECT_TRUE(capture::capActWnd(screen).empty());
}

TEST_F(Capture, AnAreaWithoutPixelsIsNotAskedFor) {
  EXPECT_TRUE(capture::capWnd(screen, kOurs, false, 0, 0, 0, 10).empty());
  EXPECT_TRUE(capture::capWnd(screen, kOurs, false, 0, 0, 10, -1).empty());
  EXPECT_EQ(screen.grabs, 0U);
}

}  // namespace
}  // namespace vireon::tests
