#include "adapters/qt/patient_timer.h"

#include <QCoreApplication>
#include <QPointer>
#include <utility>

namespace vireon::adapters {
namespace {

void runAfter(int milliseconds, const ModalGate& gate, const QPointer<QObject>& owner,
              const std::function<void()>& action) {
  QTimer::singleShot(milliseconds, QCoreApplication::instance(), [&gate, owner, action] {
    if (owner == nullptr) {
      return;
    }
    if (gate.paintingOnly()) {
      runAfter(0, gate, owner, action);
    } else {
      action();
    }
  });
}

}  // namespace

void runLater(const ModalGate& gate, QObject& owner, const std::function<void()>& action) {
  runAfter(0, gate, &owner, action);
}

PatientTimer::PatientTimer(const ModalGate& gate, std::function<void()> action,
                           std::chrono::milliseconds retry)
    : gate_(gate), action_(std::move(action)), retry_(retry) {
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { ring(); });
}

void PatientTimer::ring() {
  if (gate_.paintingOnly()) {
    timer_.start(retry_);
  } else {
    action_();
  }
}

}  // namespace vireon::adapters
