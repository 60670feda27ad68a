#pragma once

#include <algorithm>
#include <map>
#include <vector>

#include "platform/screen_grab.h"

namespace vireon::tests {

// A screen of windows without overlap, each with a frame around its client area. A pixel tells its window and
// its place in it.
class FakeScreenGrab final : public platform::ScreenGrab {
 public:
  static constexpr int kFrameLeft = 3;
  static constexpr int kFrameTop = 20;

  std::map<platform::WindowHandle, platform::ScreenRectangle> windows;  // with their frames
  platform::WindowHandle foreground = platform::kNoWindow;
  bool oneColor = false;  // the screen is all black
  bool readable = true;   // the screen gives its pixels
  std::size_t grabs = 0;

  // The pixel at this place of the window, from its frame's corner.
  static std::uint32_t pixel(platform::WindowHandle window, int x, int y) {
    return static_cast<std::uint32_t>(window << 20U | static_cast<unsigned>(y) << 10U |
                                      static_cast<unsigned>(x));
  }

  platform::WindowHandle foregroundWindow() override { return foreground; }

  std::optional<platform::ScreenRectangle> windowRectangle(platform::WindowHandle window) override {
    const auto found = windows.find(window);
    return found == windows.end() ? std::nullopt : std::optional(found->second);
  }

  platform::Bitmap grab(platform::WindowHandle window, bool clientArea, int left, int top, int width,
                        int height) override {
    ++grabs;
    if (!readable || !windows.contains(window)) return {};
    platform::Bitmap bitmap = platform::blackBitmap(width, height);
    for (int y = 0; y < height && !oneColor; ++y) {
      for (int x = 0; x < width; ++x) {
        bitmap.pixels[static_cast<std::size_t>(y * width + x)] =
            pixel(window, x + left + (clientArea ? kFrameLeft : 0), y + top + (clientArea ? kFrameTop : 0));
      }
    }
    return bitmap;
  }
};

}  // namespace vireon::tests
