#include "tests/desktop/x11/x11_desktop.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "tests/desktop/rig/pixmap_file.h"

namespace vireon::tests {
namespace {

int numberBehind(const std::string& text, const std::string& caption) {
  const std::size_t at = text.find(caption);
  return at == std::string::npos ? 0 : std::atoi(text.c_str() + at + caption.size());
}

}  // namespace

bool X11Desktop::canStart() {
  return areInstalled({"Xvfb", "openbox", "xdotool", "import", "xwininfo", "xprop", "xmessage"});
}

X11Desktop::X11Desktop() {
  server_ = std::make_unique<ChildProcess>(std::vector<std::string>{
      "Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp", "-noreset"});
  const auto number = server_->nextLine();
  if (!number) throw std::runtime_error("the server does not start");
  ::setenv("DISPLAY", (":" + *number).c_str(), 1);
  ::unsetenv("WAYLAND_DISPLAY");
  ::setenv("QT_QPA_PLATFORM", "xcb", 1);
  windowManager_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"openbox", "--sm-disable", "--startup", "echo started"});
  // A window that comes while the window manager starts would not become the active one.
  if (!windowManager_->nextLine()) throw std::runtime_error("the window manager does not start");
}

platform::Bitmap X11Desktop::screen() {
  return fromPixmapFile(
      outputOf({"import", "-silent", "-window", "root", "-depth", "8", "ppm:-"}).value_or(""));
}

platform::ScreenRectangle X11Desktop::frameOf(platform::WindowHandle window) {
  const std::string told = outputOf({"xwininfo", "-id", std::to_string(window)}).value_or("");
  // "_NET_FRAME_EXTENTS = 1, 1, 24, 1": left, right, top, bottom
  const std::string edges =
      outputOf({"xprop", "-id", std::to_string(window), "-notype", "_NET_FRAME_EXTENTS"}).value_or("");
  std::array<int, 4> edge{};
  if (std::sscanf(edges.c_str(), "_NET_FRAME_EXTENTS = %d, %d, %d, %d", &edge[0], &edge[1], &edge[2],
                  &edge[3]) != 4) {
    return {};
  }
  const int left = numberBehind(told, "Absolute upper-left X:");
  const int top = numberBehind(told, "Absolute upper-left Y:");
  return {left - edge[0], top - edge[2], left + numberBehind(told, "Width:") + edge[1],
          top + numberBehind(told, "Height:") + edge[3]};
}

platform::WindowHandle X11Desktop::windowTitled(const std::string& title) {
  // The search fails when another window goes while it looks.
  for (int tries = 0; tries < 20; ++tries) {
    if (const auto told =
            outputOf({"xdotool", "search", "--sync", "--onlyvisible", "--name", "^" + title + "$"})) {
      return std::strtoull(told->c_str(), nullptr, 10);
    }
  }
  return platform::kNoWindow;
}

void X11Desktop::activate(platform::WindowHandle window) {
  outputOf({"xdotool", "windowactivate", "--sync", std::to_string(window)});
}

void X11Desktop::move(platform::WindowHandle window, int x, int y) {
  outputOf({"xdotool", "windowmove", "--sync", std::to_string(window), std::to_string(x), std::to_string(y)});
}

}  // namespace vireon::tests
