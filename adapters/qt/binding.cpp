#include "adapters/qt/binding.h"

#include "adapters/qt/patient_timer.h"

namespace vireon::adapters {

void Binding::act(QObject& face, const std::function<void()>& action) {
  if (gate_.closed()) {
    show();
  } else if (gate_.paintingOnly()) {
    runLater(gate_, face, [this, action, before = gate_.messages()] {
      if (gate_.messages() == before) {
        action();
      } else {
        show();
      }
    });
  } else {
    action();
  }
}

}  // namespace vireon::adapters
