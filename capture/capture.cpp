#include "capture/capture.h"

#include <utility>

namespace vireon::capture {

Picture mkBmpPic(platform::Bitmap bitmap, PaletteHandle palette) {
  return {std::move(bitmap), palette};
}

Picture capWnd(platform::ScreenGrab& screen, platform::WindowHandle window, bool client, int left, int top,
               int width, int height) {
  if (window == platform::kNoWindow || width <= 0 || height <= 0) {
    return {};
  }
  return mkBmpPic(screen.grab(window, client, left, top, width, height));
}

Picture capActWnd(platform::ScreenGrab& screen) {
  const platform::WindowHandle window = screen.foregroundWindow();
  const auto at = window == platform::kNoWindow ? std::nullopt : screen.windowRectangle(window);
  return at ? capWnd(screen, window, false, 0, 0, at->right - at->left, at->bottom - at->top) : Picture();
}

}  // namespace vireon::capture
