#include "adapters/qt/wall_clock.h"

#include <QDateTime>

namespace vireon::adapters {

platform::CalendarTime QtWallClock::now() const {
  const QDateTime time = QDateTime::currentDateTime();
  return {time.date().year(), time.date().month(),  time.date().day(),
          time.time().hour(), time.time().minute(), time.time().second()};
}

}  // namespace vireon::adapters
