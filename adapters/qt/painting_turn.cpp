#include "adapters/qt/painting_turn.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>

namespace vireon::adapters {
namespace {

// Puts off the timers of widgets: a button pressed by its shortcut clicks by one, a wheel's move ends by one.
// They come again after their interval.
class WidgetTimersWait : public QObject {
 public:
  WidgetTimersWait() { QCoreApplication::instance()->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    return event->type() == QEvent::Timer && object->isWidgetType();
  }
};

}  // namespace

void paintingTurn(ModalGate& gate) {
  const ModalGate::Painting painting(gate);
  const WidgetTimersWait waiting;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  // On X11 input that was put aside is looked at only when something else comes (Qt 6.4).
  QAbstractEventDispatcher::instance()->wakeUp();
}

}  // namespace vireon::adapters
