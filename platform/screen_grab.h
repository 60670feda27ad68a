#pragma once

#include <cstdint>
#include <optional>

#include "platform/bitmap.h"

namespace vireon::platform {

// Names a window of the screen, this program's or another's.
using WindowHandle = std::uint64_t;
inline constexpr WindowHandle kNoWindow = 0;

// Pixels of the screen; right and bottom lie just outside.
struct ScreenRectangle {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  friend bool operator==(const ScreenRectangle&, const ScreenRectangle&) = default;
};

// The windows on the screen and their pixels. Where no program may read the screen, this program's own
// windows alone, rendered anew and without a frame.
class ScreenGrab {
 public:
  ScreenGrab() = default;
  ScreenGrab(const ScreenGrab&) = delete;
  ScreenGrab& operator=(const ScreenGrab&) = delete;
  virtual ~ScreenGrab() = default;

  // The window that has the input; kNoWindow when there is none or the system does not tell.
  virtual WindowHandle foregroundWindow() = 0;

  // The window with its frame; nothing when it is gone.
  virtual std::optional<ScreenRectangle> windowRectangle(WindowHandle window) = 0;

  // The pixels now on the screen of a part of the window; `left` and `top` start at its client area or at its
  // frame. What lies outside the screen is black. Empty when the window is gone or cannot be read.
  virtual Bitmap grab(WindowHandle window, bool clientArea, int left, int top, int width, int height) = 0;
};

}  // namespace vireon::platform
