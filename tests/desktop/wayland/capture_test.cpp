#include <QScreen>
#include <set>

#include "adapters/qt/bitmap_image.h"
#include "adapters/qt/desktop_grab.h"
#include "tests/adapters/qt/window_fixture.h"
#include "tests/desktop/rig/pixmap_file.h"
#include "tests/desktop/wayland/wayland_desktop.h"

namespace vireon::tests {
namespace {

class WaylandCapture : public WindowTest {
 protected:
  void SetUp() override {
    if (!WaylandDesktop::canStart()) GTEST_SKIP() << "without weston and the toolkit's part for Wayland";
    ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("wayland"));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window(), 30000));
  }
};

TEST_F(WaylandCapture, NoProgramMayReadTheScreen) {
  EXPECT_TRUE(QGuiApplication::primaryScreen()->grabWindow().isNull());
}

TEST_F(WaylandCapture, OurWindowIsRenderedInstead) {
  adapters::DesktopGrab screen;
  screen.setMainWindow(&window());
  const platform::Bitmap taken = capture::capActWnd(screen).bitmap;
  EXPECT_EQ(taken.width, window().width());
  EXPECT_EQ(taken.height, window().height());
  EXPECT_EQ(differences(taken, adapters::bitmapOf(window().grab().toImage())), 0);
  EXPECT_GT(std::set<std::uint32_t>(taken.pixels.begin(), taken.pixels.end()).size(), 10U);
}

TEST_F(WaylandCapture, TheScreenPrintButtonBringsItIntoTheViewer) {
  form().cmdSprint.click();
  ASSERT_TRUE(program().frmCapture.isOpen());
  EXPECT_EQ(program().frmCapture.Picture1().bitmap.width, window().width());
  EXPECT_TRUE(messages.seen.empty());
}

}  // namespace
}  // namespace vireon::tests
