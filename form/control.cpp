#include "form/control.h"

#include <algorithm>
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
  view_ = view;
  for (Control* control : controls_) {
    control->view_ = view;
  }
}

void Form::raiseShield(const std::vector<const Control*>& open) {
  for (Control* control : controls_) {
    const bool isOpen = std::find(open.begin(), open.end(), control) != open.end();
    control->assign(control->shielded_, control->isInput() && !isOpen);
  }
  shieldMoved(true);
}

void Form::lowerShield() {
  for (Control* control : controls_) {
    control->assign(control->shielded_, false);
  }
  shieldMoved(false);
}

void Form::tellOutOfMemory() {
  if (std::exchange(memoryRanOut_, false)) {
    onOutOfMemory();
  }
}

void Form::shieldMoved(bool up) const {
  if (view_ != nullptr) {
    view_->shieldMoved(up);
  }
}

Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) {
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
