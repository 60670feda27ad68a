#include <QApplication>

#include "adapters/hid/hidapi_port.h"
#include "app/executables/session.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("vireon"));
  QApplication::setStyle(QStringLiteral("Fusion"));
  vireon::adapters::HidapiPort hid;
  vireon::app::Session session(hid);
  session.show();
  return QApplication::exec();
}
