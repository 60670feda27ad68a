#include "adapters/qt/desktop_grab.h"

#include <QApplication>
#include <algorithm>

#include "adapters/x11/x11_screen_grab.h"

namespace vireon::adapters {
namespace {

bool isBlank(const platform::Bitmap& bitmap) {
  return bitmap.empty() || std::all_of(bitmap.pixels.begin(), bitmap.pixels.end(),
                                       [&](std::uint32_t pixel) { return pixel == bitmap.pixels.front(); });
}

}  // namespace

DesktopGrab::DesktopGrab()
    : DesktopGrab(QGuiApplication::platformName() == QLatin1String("xcb") ? std::make_unique<X11ScreenGrab>()
                                                                          : nullptr) {}

platform::WindowHandle DesktopGrab::foregroundWindow() {
  const platform::WindowHandle window =
      screen_ == nullptr ? platform::kNoWindow : screen_->foregroundWindow();
  return window == platform::kNoWindow ? ownWindows_.foregroundWindow() : window;
}

std::optional<platform::ScreenRectangle> DesktopGrab::windowRectangle(platform::WindowHandle window) {
  const auto at = screen_ == nullptr ? std::nullopt : screen_->windowRectangle(window);
  return at ? at : ownWindows_.windowRectangle(window);
}

platform::Bitmap DesktopGrab::grab(platform::WindowHandle window, bool clientArea, int left, int top,
                                   int width, int height) {
  platform::Bitmap seen =
      screen_ == nullptr ? platform::Bitmap() : screen_->grab(window, clientArea, left, top, width, height);
  if (!isBlank(seen)) {
    return seen;
  }
  const bool rendersOwn = screen_ == nullptr || QApplication::activeWindow() != nullptr;
  const auto own = rendersOwn ? ownWindows_.foregroundWindow() : platform::kNoWindow;
  const auto at = ownWindows_.windowRectangle(own);
  return at ? ownWindows_.grab(own, clientArea, 0, 0, at->right - at->left, at->bottom - at->top) : seen;
}

}  // namespace vireon::adapters
