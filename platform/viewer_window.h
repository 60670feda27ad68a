#pragma once

#include <functional>
#include <memory>

#include "platform/bitmap.h"

namespace vireon::platform {

// Twips, whole ones.
struct WindowSize {
  int width = 0;
  int height = 0;
  friend bool operator==(const WindowSize&, const WindowSize&) = default;
};

enum class ViewerCommand { kOpen, kSave, kPrint, kExit, kCopy, kClear };

// A window that shows one picture in its box, with scroll bars where the picture is the larger. Destruction
// closes it.
class ViewerWindow {
 public:
  ViewerWindow() = default;
  ViewerWindow(const ViewerWindow&) = delete;
  ViewerWindow& operator=(const ViewerWindow&) = delete;
  virtual ~ViewerWindow() = default;

  // Shows the picture; the box takes its size. An empty one removes the picture and leaves the size.
  virtual void setPicture(const Bitmap& bitmap) = 0;

  // Size of the picture box.
  virtual WindowSize pictureSize() const = 0;

  // The largest size that a window can have on its screen.
  virtual WindowSize screenSize() const = 0;

  // Gives the window this outer size, frame included, but for a frame and menu that need more room than is
  // left beside the picture. Nothing while the window is maximised, full-screen or minimised.
  virtual void resize(WindowSize outer) = 0;

  // Appears in front of the other windows, or comes there; without waiting.
  virtual void show() = 0;

  // The three come from the message pump alone.
  std::function<void(ViewerCommand)> onCommand;
  std::function<void()> onResize;  // the user or the screen gave it another size
  std::function<void()> onUnload;  // it was closed and is to be destroyed, which its handler may do
};

// Makes viewer windows.
class ViewerWindows {
 public:
  ViewerWindows() = default;
  ViewerWindows(const ViewerWindows&) = delete;
  ViewerWindows& operator=(const ViewerWindows&) = delete;
  virtual ~ViewerWindows() = default;

  // A new window with an empty box, not yet on the screen.
  virtual std::unique_ptr<ViewerWindow> make() = 0;
};

}  // namespace vireon::platform
