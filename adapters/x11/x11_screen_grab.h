#pragma once

#include <memory>

#include "platform/screen_grab.h"

struct xcb_connection_t;

namespace vireon::adapters {

// The windows of an X11 server with the frames that the window manager gives them, of whatever program.
class X11ScreenGrab : public platform::ScreenGrab {
 public:
  // Connects to the server that the session names. Without one there is no window.
  X11ScreenGrab();

  platform::WindowHandle foregroundWindow() override;
  std::optional<platform::ScreenRectangle> windowRectangle(platform::WindowHandle window) override;
  platform::Bitmap grab(platform::WindowHandle window, bool clientArea, int left, int top, int width,
                        int height) override;

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const;
  };

  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  std::uint32_t root_ = 0;  // 0 without a server
};

}  // namespace vireon::adapters
