#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QString>
#include <QTimer>
#include <cstdio>

#include "app/executables/session.h"

namespace vireon::app {

// A session's window used by itself, step by step, with a picture of it where one is wanted.
class GuidedWindow {
 public:
  static constexpr qint64 kPatience = 30000;  // milliseconds for one step
  static constexpr int kLook = 20;            // milliseconds between two looks at the least

  GuidedWindow(Session& session, const QDir& folder) : session_(session), folder_(folder) {}

  form::MainForm& form() { return session_.program().form; }
  Session& session() { return session_; }

  // Clicks the button of that name.
  void click(const char* name) {
    session_.window().binder().flush();
    if (auto* button = session_.window().findChild<QAbstractButton*>(QLatin1String(name))) {
      button->click();
    }
  }

  // Lets the program run until the condition holds; False when it does not in time.
  template <class Condition>
  bool waitFor(const Condition& condition) {
    const QDeadlineTimer patience(kPatience);
    QTimer look;
    look.start(kLook);
    while (!condition() && !patience.hasExpired()) {
      QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return condition();
  }

  // Saves a picture of the window as "<name>.png" and says so; False when it cannot be written.
  bool picture(const QString& name) { return picture(name, session_.window()); }

  // The same of another window.
  bool picture(const QString& name, QWidget& window) {
    session_.window().binder().flush();
    const QString path = folder_.absoluteFilePath(name + QStringLiteral(".png"));
    if (!folder_.mkpath(QStringLiteral(".")) || !window.grab().save(path)) {
      std::printf("  cannot write the picture %s\n", qUtf8Printable(path));
      return false;
    }
    std::printf("  picture: %s\n", qUtf8Printable(path));
    return true;
  }

 private:
  Session& session_;
  QDir folder_;
};

}  // namespace vireon::app
