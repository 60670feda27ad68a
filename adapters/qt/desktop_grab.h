#pragma once

#include <memory>

#include "adapters/qt/own_window_grab.h"
#include "platform/screen_grab.h"

namespace vireon::adapters {

// The screen where this desktop lets programs read it, otherwise this program's own windows.
class DesktopGrab : public platform::ScreenGrab {
 public:
  // `screen` is null where no program may read the screen.
  explicit DesktopGrab(std::unique_ptr<platform::ScreenGrab> screen) : screen_(std::move(screen)) {}

  // The one for the desktop that this program runs on.
  DesktopGrab();

  void setMainWindow(QWidget* window) { ownWindows_.setMainWindow(window); }

  platform::WindowHandle foregroundWindow() override;
  std::optional<platform::ScreenRectangle> windowRectangle(platform::WindowHandle window) override;

  // Where the screen gives nothing but one colour although a window of this program is active, that window is
  // rendered: so answers a server that shows the windows but keeps the screen to itself.
  platform::Bitmap grab(platform::WindowHandle window, bool clientArea, int left, int top, int width,
                        int height) override;

 private:
  std::unique_ptr<platform::ScreenGrab> screen_;
  OwnWindowGrab ownWindows_;
};

}  // namespace vireon::adapters
