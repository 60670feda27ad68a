#include <QApplication>

#include "app/executables/computer.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("vireon"));
  QApplication::setStyle(QStringLiteral("Fusion"));
  vireon::app::Computer computer(vireon::adapters::programFolder());
  vireon::app::Session session(computer.ports(), computer.folder(), computer.gate());
  return session.show() ? QApplication::exec() : 1;
}
