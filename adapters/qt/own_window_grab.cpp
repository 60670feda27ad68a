#include "adapters/qt/own_window_grab.h"

#include <QApplication>
#include <QPixmap>

#include "adapters/qt/bitmap_image.h"

namespace vireon::adapters {
namespace {

QWidget* shownWindow(platform::WindowHandle window) {
  QWidget* const widget = QWidget::find(static_cast<WId>(window));
  return widget != nullptr && widget->isVisible() ? widget : nullptr;
}

}  // namespace

platform::WindowHandle OwnWindowGrab::foregroundWindow() {
  const QWidget* const active = QApplication::activeWindow();
  const QWidget* const window = active != nullptr ? active : mainWindow_.data();
  return window != nullptr && window->isVisible() ? platform::WindowHandle{window->winId()}
                                                  : platform::kNoWindow;
}

std::optional<platform::ScreenRectangle> OwnWindowGrab::windowRectangle(platform::WindowHandle window) {
  const QWidget* const widget = shownWindow(window);
  if (widget == nullptr) {
    return std::nullopt;
  }
  const QPoint corner = widget->pos() * widget->devicePixelRatio();
  const QSize size = widget->size() * widget->devicePixelRatio();
  return platform::ScreenRectangle{corner.x(), corner.y(), corner.x() + size.width(),
                                   corner.y() + size.height()};
}

platform::Bitmap OwnWindowGrab::grab(platform::WindowHandle window, bool /*clientArea*/, int left, int top,
                                     int width, int height) {
  QWidget* const widget = shownWindow(window);
  return widget == nullptr ? platform::Bitmap()
                           : bitmapOf(widget->grab().toImage().copy(left, top, width, height));
}

}  // namespace vireon::adapters
