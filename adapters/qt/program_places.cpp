#include "adapters/qt/program_places.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSerialPortInfo>
#include <QStandardPaths>
#include <algorithm>

namespace vireon::adapters {

std::string programFolder(const QString& executableFolder, const QString& userData) {
  const QFileInfo own(executableFolder);
  if (own.fileName() != QLatin1String("bin") && own.isWritable()) {
    return executableFolder.toStdString();
  }
  QDir().mkpath(userData);
  return userData.toStdString();
}

std::string programFolder() {
  return programFolder(
      QCoreApplication::applicationDirPath(),
      QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/vireon"));
}

QString comDevice(int com, const std::string& folder, const QStringList& listed) {
  const QFileInfo link(QDir(QString::fromStdString(folder)).filePath(QStringLiteral("COM%1").arg(com)));
  if (link.isSymLink()) {
    return link.canonicalFilePath().isEmpty() ? link.symLinkTarget() : link.canonicalFilePath();
  }
  return listed.value(com - 1);
}

QStringList serialDevices() {
  QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
  std::stable_partition(ports.begin(), ports.end(), [](const QSerialPortInfo& port) {
    return port.hasVendorIdentifier() || port.systemLocation().contains(QLatin1String("ttyUSB")) ||
           port.systemLocation().contains(QLatin1String("ttyACM"));
  });
  QStringList devices;
  for (const QSerialPortInfo& port : ports) {
    devices << port.systemLocation();
  }
  return devices;
}

}  // namespace vireon::adapters
