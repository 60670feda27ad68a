#pragma once

#include <cstdint>

#include "platform/bitmap.h"
#include "platform/screen_grab.h"

namespace vireon::capture {

using PaletteHandle = std::uint32_t;
inline constexpr PaletteHandle kNoPalette = 0;

// A picture with the colours that it needs; a screen of true colours needs none.
struct Picture {
  platform::Bitmap bitmap;
  PaletteHandle palette = kNoPalette;

  bool empty() const { return bitmap.empty(); }
};

// A picture of a bitmap and its palette.
Picture mkBmpPic(platform::Bitmap bitmap, PaletteHandle palette = kNoPalette);

// A part of a window as the screen shows it: of its client area, or of the whole of it with its frame. `left`
// and `top` are pixels from that area's corner. Empty when the window cannot be read.
Picture capWnd(platform::ScreenGrab& screen, platform::WindowHandle window, bool client, int left, int top,
               int width, int height);

// The whole foreground window with its frame; empty when there is none.
Picture capActWnd(platform::ScreenGrab& screen);

}  // namespace vireon::capture
