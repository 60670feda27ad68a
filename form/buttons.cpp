#include "form/buttons.h"

#include "form/control_visitor.h"

namespace vireon::form {

void Button::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

void CheckBox::setValue(int value) {
  if (value != 0 && value != 1) {
    throw Fault(FaultKind::kPropertyValue);
  }
  if (assign(value_, value)) {
    raise(onClick);
  }
}

void CheckBox::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

void OptionButton::setValue(bool value) {
  if (value_ == value) {
    return;
  }
  if (value) {
    for (OptionButton* other : group_) {
      other->assign(other->value_, other == this);
    }
  }
  assign(value_, value);
  if (value) {
    raise(onClick);
  }
}

void OptionButton::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

}  // namespace vireon::form
