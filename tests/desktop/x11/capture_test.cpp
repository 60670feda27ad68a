#include "capture/capture.h"

#include <QLabel>
#include <QScrollBar>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cstdint>
#include <string>

#include "adapters/qt/bitmap_image.h"
#include "adapters/qt/desktop_grab.h"
#include "adapters/qt/viewer_window.h"
#include "adapters/x11/x11_screen_grab.h"
#include "tests/adapters/qt/window_fixture.h"
#include "tests/desktop/rig/pixmap_file.h"
#include "tests/desktop/x11/x11_desktop.h"

namespace vireon::tests {
namespace {

constexpr int kPatience = 30000;  // milliseconds

class X11Capture : public WindowTest {
 protected:
  void SetUp() override {
    if (!X11Desktop::canStart()) GTEST_SKIP() << "without Xvfb, openbox, xdotool, ImageMagick and x11-utils";
    ASSERT_TRUE(
        waitFor([this] { return framed(window()) && screen.foregroundWindow() == window().winId(); }));
    ASSERT_TRUE(waitFor([this] { return iconShown(); }));
    settle();
  }

  template <class Condition>
  static bool waitFor(const Condition& condition) {
    return QTest::qWaitFor(condition, kPatience);
  }

  static bool framed(const QWidget& widget) {
    return widget.windowHandle() != nullptr && widget.windowHandle()->frameMargins().top() > 0;
  }

  // The window gets its icon a moment after the start, and its frame then shows the red trace.
  bool iconShown() {
    const platform::ScreenRectangle at = X11Desktop::frameOf(window().winId());
    const platform::Bitmap corner = part(X11Desktop::screen(), at.left, at.top, 30, 20);
    return std::any_of(corner.pixels.begin(), corner.pixels.end(), [](std::uint32_t pixel) {
      return (pixel >> 16U) > 150 && (pixel >> 16U) > 2 * (pixel >> 8U & 0xFFU);
    });
  }

  // Until the screen shows the same twice.
  static void settle() {
    platform::Bitmap before;
    ASSERT_TRUE(waitFor([&] {
      const platform::Bitmap now = X11Desktop::screen();
      return !now.empty() && now == std::exchange(before, now);
    }));
  }

  // The foreground window is what an independent program sees at its place.
  void expectTaken(platform::WindowHandle expected) {
    EXPECT_EQ(screen.foregroundWindow(), expected);
    const platform::ScreenRectangle at = X11Desktop::frameOf(expected);
    const platform::Bitmap seen =
        part(X11Desktop::screen(), at.left, at.top, at.right - at.left, at.bottom - at.top);
    const platform::Bitmap taken = capture::capActWnd(screen).bitmap;
    EXPECT_EQ(taken.width, seen.width);
    EXPECT_EQ(taken.height, seen.height);
    EXPECT_EQ(differences(taken, seen), 0);
  }

  adapters::X11ScreenGrab screen;
};

TEST_F(X11Capture, OurWindowIsTakenWithItsFrame) {
  expectTaken(window().winId());
  const auto at = screen.windowRectangle(window().winId());
  ASSERT_TRUE(at);
  EXPECT_GT(at->bottom - at->top, window().height());
}

TEST_F(X11Capture, AnotherProgramsWindowIsTakenWithItsFrame) {
  const ChildProcess other({"xmessage", "-title", "Another program", "A text of another program"});
  const platform::WindowHandle theirs = X11Desktop::windowTitled("Another program");
  ASSERT_NE(theirs, platform::kNoWindow);
  X11Desktop::activate(theirs);
  ASSERT_TRUE(waitFor([&] { return screen.foregroundWindow() == theirs; }));
  settle();
  expectTaken(theirs);
}

// A window that no window manager puts into a frame, with what is said of its edges: left, right, top,
// bottom.
class X11EdgesTold : public X11Capture {
 protected:
  void SetUp() override {
    X11Capture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    unframed.setGeometry(100, 200, 300, 150);
    unframed.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&unframed, kPatience));
    ASSERT_TRUE(waitFor([this] { return screen.windowRectangle(unframed.winId()) == kPlain; }));
  }

  void tell(const char* property, const std::string& edges) const {
    ASSERT_TRUE(outputOf({"xprop", "-id", std::to_string(unframed.winId()), "-format", property, "32c",
                          "-set", property, edges}));
  }

  static constexpr platform::ScreenRectangle kPlain{100, 200, 400, 350};
  QWidget unframed{nullptr, Qt::BypassWindowManagerHint};
};

TEST_F(X11EdgesTold, AFrameBesideTheWindowBelongsToItAndAShadowInsideDoesNot) {
  tell("_NET_FRAME_EXTENTS", "1, 2, 24, 3");
  EXPECT_EQ(screen.windowRectangle(unframed.winId()), (platform::ScreenRectangle{99, 176, 402, 353}));
  tell("_GTK_FRAME_EXTENTS", "1, 2, 24, 3");
  EXPECT_EQ(screen.windowRectangle(unframed.winId()), kPlain);
}

TEST_F(X11EdgesTold, EdgesThatNoWindowHasAreNotBelieved) {
  tell("_NET_FRAME_EXTENTS", "2147483647, 2147483647, 2147483647, 2147483647");
  tell("_GTK_FRAME_EXTENTS", "0, 0, 65536, 0");
  EXPECT_EQ(screen.windowRectangle(unframed.winId()), kPlain);
}

TEST_F(X11EdgesTold, AWindowFarLargerThanAnyScreenIsNotTaken) {
  tell("_NET_FRAME_EXTENTS", "10000, 10000, 10000, 10000");
  const auto at = screen.windowRectangle(unframed.winId());
  ASSERT_TRUE(at);
  ASSERT_GT(at->right - at->left, 20000);
  EXPECT_TRUE(screen.grab(unframed.winId(), false, 0, 0, at->right - at->left, at->bottom - at->top).empty());
}

TEST_F(X11Capture, AWindowPartlyOutsideTheScreenIsBlackThere) {
  X11Desktop::move(window().winId(), -200, 900);
  ASSERT_TRUE(waitFor([&] { return X11Desktop::frameOf(window().winId()).left < 0; }));
  settle();
  expectTaken(window().winId());
  const auto at = screen.windowRectangle(window().winId());
  const platform::Bitmap taken = capture::capActWnd(screen).bitmap;
  ASSERT_LT(at->left, -100);
  ASSERT_GT(at->bottom, 1024);
  EXPECT_EQ(taken.at(0, 0), 0U);
  EXPECT_EQ(taken.at(taken.width - 1, taken.height - 1), 0U);
}

TEST_F(X11Capture, TheClientAreaIsTheWindowWithoutItsFrame) {
  const QImage rendered = window().grab().toImage();
  const platform::Bitmap inside =
      capture::capWnd(screen, window().winId(), true, 0, 0, window().width(), window().height()).bitmap;
  EXPECT_EQ(differences(inside, adapters::bitmapOf(rendered)), 0);
}

TEST_F(X11Capture, AWindowThatIsGoneHasNoPlaceAndNoPixels) {
  platform::WindowHandle theirs = platform::kNoWindow;
  {
    const ChildProcess other({"xmessage", "-title", "Gone soon", "A text"});
    theirs = X11Desktop::windowTitled("Gone soon");
    ASSERT_TRUE(screen.windowRectangle(theirs));
  }
  ASSERT_TRUE(waitFor([&] { return !screen.windowRectangle(theirs); }));
  EXPECT_TRUE(screen.grab(theirs, false, 0, 0, 10, 10).empty());
}

TEST_F(X11Capture, WithoutAWindowManagersWordTheWindowWithTheKeysIsTaken) {
  ASSERT_TRUE(outputOf({"xprop", "-root", "-remove", "_NET_ACTIVE_WINDOW"}));
  const auto at = screen.windowRectangle(screen.foregroundWindow());
  EXPECT_EQ(at, screen.windowRectangle(window().winId()));
}

// The whole way, from the button to the viewer.
class X11ScreenPrint : public X11Capture {
 protected:
  adapters::QtViewerWindow* viewer() const {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (auto* found = qobject_cast<adapters::QtViewerWindow*>(top)) return found;
    }
    return nullptr;
  }

  void capture() {
    form().cmdSprint.click();
    ASSERT_NE(viewer(), nullptr);
    ASSERT_TRUE(waitFor([this] { return framed(*viewer()) && viewer()->isActiveWindow(); }));
    settle();
  }
};

TEST_F(X11ScreenPrint, TheViewerShowsTheWindowPixelByPixel) {
  const platform::ScreenRectangle at = X11Desktop::frameOf(window().winId());
  const platform::Bitmap before = X11Desktop::screen();
  capture();
  const platform::Bitmap seen = part(before, at.left, at.top, at.right - at.left, at.bottom - at.top);
  EXPECT_EQ(differences(program().frmCapture.Picture1().bitmap, seen), 0);
  const auto* picture = viewer()->findChild<QLabel*>(QStringLiteral("Picture1"));
  EXPECT_EQ(differences(adapters::bitmapOf(picture->pixmap(Qt::ReturnByValue).toImage()), seen), 0);
  const platform::Bitmap shown = X11Desktop::screen();
  const QPoint corner = picture->mapToGlobal(QPoint());
  EXPECT_EQ(differences(part(shown, corner.x(), corner.y(), seen.width, seen.height), seen), 0);
}

TEST_F(X11ScreenPrint, TheViewerIsItsPictureAndTheRoomBesideIt) {
  capture();
  const platform::Bitmap& picture = program().frmCapture.Picture1().bitmap;
  const platform::ScreenRectangle at = X11Desktop::frameOf(viewer()->winId());
  EXPECT_EQ(at.right - at.left, qRound((picture.width * 15 + 100) / 15.0));  // 96 dots an inch
  EXPECT_EQ(at.bottom - at.top, qRound((picture.height * 15 + 800) / 15.0));
  for (const QScrollBar* bar : viewer()->findChildren<QScrollBar*>()) EXPECT_FALSE(bar->isVisible());
}

TEST_F(X11ScreenPrint, AViewerThatIsResizedTakesItsPicturesSizeAgain) {
  capture();
  const QSize before = viewer()->size();
  outputOf({"xdotool", "windowsize", std::to_string(viewer()->winId()), "300", "200"});
  ASSERT_TRUE(waitFor([this] { return viewer()->width() == 300; }));
  EXPECT_TRUE(waitFor([&] { return viewer()->size() == before; }));
}

TEST_F(X11ScreenPrint, AMaximisedViewerStaysSo) {
  capture();
  viewer()->showMaximized();
  ASSERT_TRUE(waitFor([this] { return viewer()->width() > 1200; }));
  settle();
  EXPECT_GT(viewer()->width(), 1200);
}

TEST_F(X11ScreenPrint, APictureLargerThanTheScreenGetsScrollBarsInAWindowOnTheScreen) {
  capture();
  program().frmCapture.show(capture::mkBmpPic(platform::blackBitmap(2000, 1500)));
  settle();
  const platform::ScreenRectangle at = X11Desktop::frameOf(viewer()->winId());
  EXPECT_EQ(at.right - at.left, 1280);
  EXPECT_EQ(at.bottom - at.top, 1024);
  for (const QScrollBar* bar : viewer()->findChildren<QScrollBar*>()) {
    EXPECT_TRUE(bar->isVisible());
    EXPECT_GT(bar->maximum(), 0);
  }
}

TEST_F(X11ScreenPrint, TheSecondCaptureComesIntoTheSameViewer) {
  capture();
  const QWidget* const first = viewer();
  X11Desktop::activate(window().winId());
  ASSERT_TRUE(waitFor([this] { return screen.foregroundWindow() == window().winId(); }));
  capture();
  EXPECT_EQ(viewer(), first);
}

}  // namespace
}  // namespace vireon::tests
