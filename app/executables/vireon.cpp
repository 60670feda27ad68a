#include <QApplication>
#include <QCommandLineParser>

#include "adapters/qt/desktop_identity.h"
#include "app/executables/computer.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  vireon::adapters::setDesktopIdentity(QStringLiteral("vireon"));
  QApplication::setStyle(QStringLiteral("Fusion"));

  QCommandLineParser options;
  options.setApplicationDescription(
      QStringLiteral("Remote control of a handheld oscilloscope, multimeter and data logger."));
  options.addHelpOption();
  options.addVersionOption();
  options.process(application);

  vireon::app::Computer computer(vireon::adapters::programFolder());
  vireon::app::Session session(computer.ports(), computer.folder(), computer.gate());
  return session.show() ? QApplication::exec() : 1;
}
