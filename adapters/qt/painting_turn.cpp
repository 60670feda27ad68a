#include "adapters/qt/painting_turn.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>

namespace vireon::adapters {

void paintingTurn(ModalGate& gate) {
  const ModalGate::Painting painting(gate);
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  // On X11 input that was put aside is looked at only when something else comes (Qt 6.4).
  QAbstractEventDispatcher::instance()->wakeUp();
}

}  // namespace vireon::adapters
