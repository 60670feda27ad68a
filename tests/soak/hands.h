#pragma once

#include <QEvent>
#include <QPoint>
#include <QString>
#include <QWidget>
#include <Qt>

namespace vireon::soak {

// The user's mouse and keyboard. Everything goes to the window under it as from the window system, so that
// what stands in front and what is blocked by a message gets what it would get from a user.
class Hands {
 public:
  void click(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
  void doubleClick(QWidget& widget, QPoint at);
  void press(QWidget& widget, QPoint at);
  void move(QWidget& widget, QPoint at);
  void release(QWidget& widget, QPoint at);
  // A positive number of notches is away from the user.
  void wheel(QWidget& widget, QPoint at, int notches);

  // At the widget's window, whose focus decides who gets it.
  void key(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
  void type(QWidget& widget, const QString& text);

 private:
  void mouse(QWidget& widget, QPoint at, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held);

  int time_ = 0;  // milliseconds; far enough apart that two clicks are no double click
};

}  // namespace vireon::soak
