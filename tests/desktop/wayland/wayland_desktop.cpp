#include "tests/desktop/wayland/wayland_desktop.h"

#include <poll.h>

#include <QDir>
#include <QLibraryInfo>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace vireon::tests {

bool WaylandDesktop::canStart() {
  const QDir platforms(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
  return areInstalled({"weston"}) && platforms.exists(QStringLiteral("libqwayland-generic.so"));
}

WaylandDesktop::WaylandDesktop() {
  ::setenv("XDG_RUNTIME_DIR", folder_.path().c_str(), 1);
  ::unsetenv("DISPLAY");
  const std::filesystem::path socket = folder_ / "vireon-test";
  compositor_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"weston", "--backend=headless-backend.so", "--socket=vireon-test",
                               "--no-config", "--idle-time=0", "--log=" + (folder_ / "weston.log").string()});
  while (!std::filesystem::exists(socket)) {
    if (!compositor_->running()) throw std::runtime_error("the compositor does not start");
    ::poll(nullptr, 0, 10);
  }
  ::setenv("WAYLAND_DISPLAY", "vireon-test", 1);
  ::setenv("QT_QPA_PLATFORM", "wayland", 1);
}

}  // namespace vireon::tests
