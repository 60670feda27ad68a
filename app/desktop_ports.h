#pragma once

#include "capture/viewer.h"
#include "platform/printer.h"
#include "platform/screen_grab.h"
#include "platform/steady_clock.h"

namespace vireon::app {

// What capturing and printing need from the desktop; each outlives the program.
struct DesktopPorts {
  const platform::SteadyClock& steadyClock;
  platform::ScreenGrab& screen;
  platform::Printer& printer;
  capture::ViewerPorts viewer;
};

}  // namespace vireon::app
