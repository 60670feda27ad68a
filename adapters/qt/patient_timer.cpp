#include "adapters/qt/patient_timer.h"

#include <QCoreApplication>
#include <QPointer>
#include <utility>

namespace vireon::adapters {
namespace {

constexpr int kRetry = 2;  // milliseconds until what has to wait is tried again

void runAfter(int milliseconds, const ModalGate& gate, const QPointer<QObject>& owner,
              const std::function<void()>& action) {
  QTimer::singleShot(milliseconds, QCoreApplication::instance(), [&gate, owner, action] {
    if (owner == nullptr) {
      return;
    }
    if (gate.paintingOnly()) {
      runAfter(kRetry, gate, owner, action);
    } else {
      action();
    }
  });
}

}  // namespace

void runLater(const ModalGate& gate, QObject& owner, const std::function<void()>& action) {
  runAfter(0, gate, &owner, action);
}

PatientTimer::PatientTimer(const ModalGate& gate, std::function<void()> action)
    : gate_(gate), action_(std::move(action)) {
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { ring(); });
}

void PatientTimer::ring() {
  if (gate_.paintingOnly()) {
    timer_.start(kRetry);
  } else {
    action_();
  }
}

}  // namespace vireon::adapters
