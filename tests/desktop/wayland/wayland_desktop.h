#pragma once

#include <memory>

#include "tests/desktop/rig/child_process.h"
#include "tests/fakes/temporary_folder.h"

namespace vireon::tests {

// A Wayland compositor of its own, without a screen.
class WaylandDesktop {
 public:
  // The compositor is installed, and the toolkit's part for it.
  static bool canStart();

  // Starts it and makes this process use it; before any window is made.
  WaylandDesktop();

 private:
  TemporaryFolder folder_;
  std::unique_ptr<ChildProcess> compositor_;
};

}  // namespace vireon::tests
