#include "adapters/qt/desktop_identity.h"

#include <QApplication>
#include <chrono>

// Q_INIT_RESOURCE works in the global namespace alone; without it a static library's resources are left out.
static void initIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace vireon::adapters {
namespace {

constexpr std::chrono::milliseconds kIconDelay{200};

}  // namespace

QIcon programIcon() {
  initIcons();
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    icon.addFile(QStringLiteral(":/vireon/icon-%1.png").arg(size));
  }
  return icon;
}

void setDesktopIdentity(const QString& name) {
  QApplication::setApplicationName(name);
  QApplication::setApplicationVersion(QStringLiteral(VIREON_VERSION));
  QApplication::setDesktopFileName(name);
}

WindowIcon::WindowIcon() {
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [] { QApplication::setWindowIcon(programIcon()); });
  timer_.start(kIconDelay);
}

}  // namespace vireon::adapters
