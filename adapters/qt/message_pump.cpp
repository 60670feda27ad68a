#include "adapters/qt/message_pump.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace vireon::adapters {

void QtMessagePump::pump() {
  QCoreApplication::processEvents();
}

void QtMessagePump::wait() {
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void QtMessagePump::waitAtMost(std::chrono::milliseconds limit) {
  QTimer end;
  end.setTimerType(Qt::PreciseTimer);
  end.setSingleShot(true);
  end.start(limit);
  wait();
}

}  // namespace vireon::adapters
