#include <QApplication>
#include <QWidget>

#include "app/executables/until_shown.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  const vireon::app::EndWhenShown end(window);
  window.resize(731, 386);
  window.show();
  return QApplication::exec();
}
