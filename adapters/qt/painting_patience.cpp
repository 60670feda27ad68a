#include "adapters/qt/painting_patience.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace vireon::adapters {

NodePatience paintingPatience(ModalGate& gate) {
  NodePatience patience;
  patience.pause = [&gate, slice = patience.pause] {
    const ModalGate::Painting painting(gate);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    slice();
  };
  return patience;
}

}  // namespace vireon::adapters
