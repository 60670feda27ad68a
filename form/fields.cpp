#include "form/fields.h"

#include "form/control_visitor.h"
#include "form/text_encoding.h"

namespace vireon::form {

void Label::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

void TextBox::setText(std::string text) {
  std::string utf8 = utf8From1252(text);
  take(std::move(text), std::move(utf8), true);
}

void TextBox::setUtf8(std::string utf8) {
  Text1252 known = text1252FromUtf8(utf8);
  take(std::move(known.text), std::move(utf8), known.complete);
}

void TextBox::type(std::string_view utf8) {
  attend([&] { setUtf8(std::string(utf8)); });
}

void TextBox::take(std::string text, std::string utf8, bool complete) {
  text_ = std::move(text);
  complete_ = complete;
  if (assign(utf8_, std::move(utf8))) {
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
