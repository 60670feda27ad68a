#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "app/executables/session.h"

namespace vireon::tests {

// What a test does to a session's window.
class ShownWindow : public testing::Test {
 protected:
  virtual app::Session& shown() = 0;

  app::Program& program() { return shown().program(); }
  form::MainForm& form() { return shown().program().form; }
  adapters::MainWindow& window() { return shown().window(); }

  template <class Widget = QWidget>
  Widget* find(const char* name) {
    return window().findChild<Widget*>(QLatin1String(name));
  }

  // Lets the window show every waiting change.
  void turn() {
    window().binder().flush();
    QApplication::processEvents();
  }

  void click(const char* name) {
    QTest::mouseClick(find(name), Qt::LeftButton);
    turn();
  }
};

}  // namespace vireon::tests
