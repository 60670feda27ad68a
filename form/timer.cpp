#include "form/timer.h"

#include "form/control_visitor.h"

namespace vireon::form {

void Timer::setInterval(int milliseconds) {
  if (milliseconds < 0) {
    throw Fault(FaultKind::kPropertyValue);
  }
  assign(interval_, milliseconds);
}

void Timer::tick() const {
  if (enabled() && interval_ > 0) {
    raise(onTimer);
  }
}

void Timer::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

}  // namespace vireon::form
