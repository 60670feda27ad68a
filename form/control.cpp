#include "form/control.h"

#include <utility>

namespace vireon::form {

void Form::setCaption(std::string caption) {
  if (caption_ == caption) {
    return;
  }
  caption_ = std::move(caption);
  if (onCaptionChanged) {
    onCaptionChanged();
  }
}

void Form::setView(ControlView* view) {
  for (Control* control : controls_) {
    control->view_ = view;
  }
}

Control::Control(Form& form, std::string name) : name_(std::move(name)) {
  form.controls_.push_back(this);
}

void Control::refresh() const {
  if (view_ != nullptr) {
    view_->refresh(*this);
  }
}

void Control::touch() const {
  if (view_ != nullptr) {
    view_->changed(*this);
  }
}

}  // namespace vireon::form
