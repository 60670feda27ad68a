#include "form/ranges.h"

#include <algorithm>

#include "form/control_visitor.h"

namespace vireon::form {

void Ranged::setRange(int minimum, int maximum) {
  if (minimum > maximum) {
    throw Fault(FaultKind::kPropertyValue);
  }
  assign(minimum_, minimum);
  assign(maximum_, maximum);
  assign(value_, std::clamp(value_, minimum, maximum));
}

bool Ranged::assignValue(int value) {
  if (value < minimum_ || value > maximum_) {
    throw Fault(FaultKind::kPropertyValue);
  }
  return assign(value_, value);
}

void Slider::setValue(int value) {
  if (assignValue(value)) {
    raise(onChange);
  }
}

void Slider::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

void ProgressBar::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

}  // namespace vireon::form
