#include "form/fields.h"

#include "form/control_visitor.h"
#include "form/text_encoding.h"

namespace vireon::form {

void Label::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

void TextBox::setText(std::string text) {
  take(std::move(text), true);
}

void TextBox::type(std::string_view utf8) {
  attend([&] {
    Text1252 typed = text1252FromUtf8(utf8);
    take(std::move(typed.text), typed.complete);
  });
}

void TextBox::take(std::string text, bool complete) {
  assign(complete_, complete);
  if (assign(text_, std::move(text))) {
    raise(onChange);
  }
}

void TextBox::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

void ComboBox::addItem(std::string item) {
  items_.push_back(std::move(item));
  touch();
}

void ComboBox::clear() {
  items_.clear();
  listIndex_ = -1;
  touch();
}

void ComboBox::setListIndex(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size())) {
    throw Fault(FaultKind::kPropertyValue);
  }
  if (assign(listIndex_, index)) {
    raise(onClick);
  }
}

void ComboBox::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

}  // namespace vireon::form
