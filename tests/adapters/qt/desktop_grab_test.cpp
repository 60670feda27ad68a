#include "adapters/qt/desktop_grab.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QTest>

#include "adapters/qt/bitmap_image.h"
#include "tests/fakes/fake_screen_grab.h"

namespace vireon::tests {
namespace {

constexpr platform::WindowHandle kTheirs = 7;

class DesktopGrab : public testing::Test {
 protected:
  DesktopGrab() {
    auto screen = std::make_unique<FakeScreenGrab>();
    fake = screen.get();
    fake->windows = {{kTheirs, {0, 0, 40, 30}}};
    fake->foreground = kTheirs;
    grab = std::make_unique<adapters::DesktopGrab>(std::move(screen));
    window.setText(QStringLiteral("A window of this program"));
    grab->setMainWindow(&window);
  }

  void activate() {
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 30000));
  }

  platform::Bitmap rendered() { return adapters::bitmapOf(window.grab().toImage()); }
  platform::Bitmap taken() { return grab->grab(grab->foregroundWindow(), false, 0, 0, 40, 30); }

  FakeScreenGrab* fake = nullptr;
  std::unique_ptr<adapters::DesktopGrab> grab;
  QLabel window;
};

TEST_F(DesktopGrab, GivesWhatTheScreenGives) {
  activate();
  EXPECT_EQ(grab->foregroundWindow(), kTheirs);
  EXPECT_EQ(grab->windowRectangle(kTheirs), fake->windows[kTheirs]);
  EXPECT_EQ(taken(), fake->grab(kTheirs, false, 0, 0, 40, 30));
}

TEST_F(DesktopGrab, AScreenOfOneColourIsNoPictureWhereAWindowOfOursIsActive) {
  activate();
  fake->oneColor = true;
  EXPECT_EQ(taken(), rendered());
}

TEST_F(DesktopGrab, AScreenThatCannotBeReadIsNoPictureEither) {
  activate();
  fake->readable = false;
  EXPECT_EQ(taken(), rendered());
}

TEST_F(DesktopGrab, AnotherProgramsWindowOfOneColourIsTakenAsItIs) {
  activate();
  window.hide();
  ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeWindow() == nullptr; }, 30000));
  fake->oneColor = true;
  EXPECT_EQ(taken(), platform::blackBitmap(40, 30));
}

TEST_F(DesktopGrab, WithoutAScreenOurMainWindowIsRendered) {
  grab = std::make_unique<adapters::DesktopGrab>(nullptr);
  grab->setMainWindow(&window);
  window.show();
  const platform::WindowHandle own = grab->foregroundWindow();
  const auto at = grab->windowRectangle(own);
  ASSERT_TRUE(at);
  EXPECT_EQ(at->right - at->left, qRound(window.width() * window.devicePixelRatio()));
  EXPECT_EQ(grab->grab(own, false, 0, 0, at->right - at->left, at->bottom - at->top), rendered());
}

TEST_F(DesktopGrab, WithoutAScreenAndAWindowThereIsNothing) {
  grab = std::make_unique<adapters::DesktopGrab>(nullptr);
  grab->setMainWindow(&window);
  EXPECT_EQ(grab->foregroundWindow(), platform::kNoWindow);
  EXPECT_FALSE(grab->windowRectangle(platform::kNoWindow));
  EXPECT_TRUE(grab->grab(platform::kNoWindow, false, 0, 0, 5, 5).empty());
}

}  // namespace
}  // namespace vireon::tests
