#include <QApplication>

#include "adapters/hid/hidapi_port.h"
#include "adapters/posix/posix_file_store.h"
#include "adapters/qt/painting_hid.h"
#include "adapters/qt/painting_patience.h"
#include "adapters/qt/program_places.h"
#include "adapters/qt/serial_port.h"
#include "app/executables/session.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("vireon"));
  QApplication::setStyle(QStringLiteral("Fusion"));
  const std::string folder = vireon::adapters::programFolder();
  vireon::adapters::ModalGate gate;
  vireon::adapters::HidapiPort hidapi;
  vireon::adapters::PaintingHid hid(hidapi, gate);
  vireon::adapters::QtSerialPort serialPort(
      [&folder](int com) {
        return vireon::adapters::comDevice(com, folder, vireon::adapters::serialDevices());
      },
      vireon::adapters::paintingPatience(gate));
  vireon::adapters::PosixFileStore files;
  vireon::app::Session session({hid, serialPort, files}, folder, gate);
  return session.show() ? QApplication::exec() : 1;
}
