#pragma once

#include <memory>
#include <string>

#include "platform/bitmap.h"
#include "platform/screen_grab.h"
#include "tests/desktop/rig/child_process.h"

namespace vireon::tests {

// An X11 server of its own with a window manager, and other programs' view of it.
class X11Desktop {
 public:
  // What it takes, all of it other packages' programs.
  static bool canStart();

  // Starts both and makes this process use that server; before any window is made.
  X11Desktop();

  // The whole screen, as a program for screenshots sees it.
  static platform::Bitmap screen();

  // A window with its frame, as a program for window data sees it.
  static platform::ScreenRectangle frameOf(platform::WindowHandle window);

  // The window of that title, once it is on the screen.
  static platform::WindowHandle windowTitled(const std::string& title);

  static void activate(platform::WindowHandle window);
  static void move(platform::WindowHandle window, int x, int y);

 private:
  std::unique_ptr<ChildProcess> server_;
  std::unique_ptr<ChildProcess> windowManager_;
};

}  // namespace vireon::tests
