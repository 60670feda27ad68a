#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/screen_grab.h"

namespace vireon::adapters {

// This program's windows alone, rendered anew and without a frame.
class OwnWindowGrab : public platform::ScreenGrab {
 public:
  // Stands for the foreground window while no window of this program is active.
  void setMainWindow(QWidget* window) { mainWindow_ = window; }

  platform::WindowHandle foregroundWindow() override;
  std::optional<platform::ScreenRectangle> windowRectangle(platform::WindowHandle window) override;
  platform::Bitmap grab(platform::WindowHandle window, bool clientArea, int left, int top, int width,
                        int height) override;

 private:
  QPointer<QWidget> mainWindow_;
};

}  // namespace vireon::adapters
