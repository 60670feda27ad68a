#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include "app/executables/computer.h"
#include "app/executables/until_shown.h"

// The program as it starts when its settings file is there, until its window is painted.
int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  const QTemporaryDir folder;
  QFile settings(folder.filePath(QStringLiteral("vireon.ini")));
  if (!settings.open(QIODevice::WriteOnly) ||
      settings.write("[Caption]\r\nCaption=Vireon\r\n[System ID]\r\nSystem ID=K7310\r\n[ProductId]\r\n"
                     "ProductId=-8191\r\n[Tabs]\r\nTabs=2\r\n[ComPort]\r\nComPort=0\r\n") < 0) {
    return 1;
  }
  settings.close();
  vireon::app::Computer computer(folder.path().toStdString());
  vireon::app::Session session(computer.ports(), computer.folder(), computer.gate());
  if (!session.show()) {
    return 1;
  }
  const vireon::app::EndWhenShown end(session.window());
  return QApplication::exec();
}
