#include "adapters/qt/message_pump.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace vireon::adapters {

void QtMessagePump::pump() {
  QCoreApplication::processEvents();
}

void QtMessagePump::wait() {
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

}  // namespace vireon::adapters
