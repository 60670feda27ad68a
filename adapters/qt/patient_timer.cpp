#include "adapters/qt/patient_timer.h"

#include <QCoreApplication>
#include <QPointer>
#include <utility>

namespace vireon::adapters {
namespace {

// Until what waits for the end of a message looks again.
constexpr std::chrono::milliseconds kMessageRetry{50};

void runAfter(std::chrono::milliseconds delay, const ModalGate& gate, const QPointer<QObject>& owner,
              const std::function<void()>& action) {
  QTimer::singleShot(delay, QCoreApplication::instance(), [&gate, owner, action] {
    if (owner == nullptr) {
      return;
    }
    if (gate.paintingOnly()) {
      runAfter({}, gate, owner, action);
    } else if (gate.closed()) {
      runAfter(kMessageRetry, gate, owner, action);
    } else {
      action();
    }
  });
}

}  // namespace

void runLater(const ModalGate& gate, QObject& owner, const std::function<void()>& action) {
  runAfter({}, gate, &owner, action);
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
