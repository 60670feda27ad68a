#include "adapters/qt/binding.h"

#include "adapters/qt/patient_timer.h"

namespace vireon::adapters {

void Binding::act(QObject& face, const std::function<void()>& action) const {
  if (gate_.paintingOnly()) {
    runLater(gate_, face, action);
  } else {
    action();
  }
}

}  // namespace vireon::adapters
