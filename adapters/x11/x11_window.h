#pragma once

#include <xcb/xcb.h>

#include <memory>
#include <optional>
#include <vector>

#include "platform/screen_grab.h"

namespace vireon::adapters {

// What the system's library gives away to be freed.
struct FreeReply {
  void operator()(void* reply) const;
};
template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

// Questions about one window; all answer nothing, or 0, when it is gone.
class X11Window {
 public:
  X11Window(xcb_connection_t* connection, xcb_window_t root, xcb_window_t window)
      : connection_(connection), root_(root), window_(window) {}

  // The numbers of a property, e.g. of "_NET_ACTIVE_WINDOW".
  std::vector<std::uint32_t> numbers(const char* property) const;

  // The window that stands directly on the screen and holds this one: the frame, or the window itself.
  xcb_window_t topLevel() const;

  // Where the inside of the window is on the screen.
  std::optional<platform::ScreenRectangle> inside() const;

  // The window with its frame.
  std::optional<platform::ScreenRectangle> outside() const;

 private:
  xcb_connection_t* connection_;
  xcb_window_t root_;
  xcb_window_t window_;
};

}  // namespace vireon::adapters
