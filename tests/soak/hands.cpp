#include "tests/soak/hands.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

namespace vireon::soak {
namespace {

constexpr int kApart = 1000;  // milliseconds
constexpr int kQuick = 10;
constexpr int kNotch = 120;  // eighths of a degree

}  // namespace

void Hands::mouse(QWidget& widget, QPoint at, QEvent::Type type, Qt::MouseButton button,
                  Qt::MouseButtons held) {
  QWidget* const top = widget.window();
  if (QWindow* const window = top->windowHandle(); window != nullptr && window->isVisible()) {
    qt_handleMouseEvent(window, widget.mapTo(top, at), widget.mapToGlobal(at), held, button, type,
                        Qt::NoModifier, time_);
  }
}

void Hands::click(QWidget& widget, QPoint at, Qt::MouseButton button) {
  time_ += kApart;
  const QPointer<QWidget> there(&widget);
  mouse(widget, at, QEvent::MouseMove, Qt::NoButton, Qt::NoButton);
  mouse(widget, at, QEvent::MouseButtonPress, button, button);
  if (there != nullptr) {
    mouse(widget, at, QEvent::MouseButtonRelease, button, Qt::NoButton);
  }
}

void Hands::doubleClick(QWidget& widget, QPoint at) {
  const QPointer<QWidget> there(&widget);
  click(widget, at);
  time_ += kQuick - kApart;
  if (there != nullptr) {
    click(widget, at);
  }
}

void Hands::press(QWidget& widget, QPoint at) {
  time_ += kApart;
  mouse(widget, at, QEvent::MouseMove, Qt::NoButton, Qt::NoButton);
  mouse(widget, at, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
}

void Hands::move(QWidget& widget, QPoint at) {
  time_ += kQuick;
  mouse(widget, at, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton);
}

void Hands::release(QWidget& widget, QPoint at) {
  time_ += kQuick;
  mouse(widget, at, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
}

void Hands::wheel(QWidget& widget, QPoint at, int notches) {
  QWidget* const top = widget.window();
  if (QWindow* const window = top->windowHandle(); window != nullptr && window->isVisible()) {
    QWheelEvent event(widget.mapTo(top, at), widget.mapToGlobal(at), QPoint(), QPoint(0, notches * kNotch),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window, &event);
  }
}

void Hands::key(QWidget& widget, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  const QPointer<QWindow> window = widget.window()->windowHandle();
  if (window == nullptr || !window->isVisible()) {
    return;
  }
  qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text);
  if (window != nullptr && window->isVisible()) {
    qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text);
  }
}

void Hands::type(QWidget& widget, const QString& text) {
  const QPointer<QWidget> there(&widget);
  for (const QChar letter : text) {
    if (there != nullptr) {
      key(widget, letter.unicode() < 0x7F ? static_cast<int>(letter.toUpper().unicode()) : 0, {}, letter);
    }
  }
}

}  // namespace vireon::soak
