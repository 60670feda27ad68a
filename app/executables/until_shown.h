#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace vireon::app {

// Ends the event loop when the window has been painted for the first time; for measuring the start.
class EndWhenShown : public QObject {
 public:
  explicit EndWhenShown(QWidget& window) { window.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      QTimer::singleShot(0, qApp, &QApplication::quit);
    }
    return QObject::eventFilter(object, event);
  }
};

}  // namespace vireon::app
