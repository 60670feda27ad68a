#pragma once

#include <QAbstractButton>

#include "adapters/qt/binding.h"
#include "form/buttons.h"

namespace vireon::adapters {

// What the three kinds of buttons share: caption, colours, and the click of mouse or keyboard.
class ButtonBinding : public Binding {
 public:
  ButtonBinding(form::Button& control, QAbstractButton& widget);
  void show() override;

 protected:
  // Without a click connection; for the kinds that have a value.
  ButtonBinding(const form::Captioned& control, QAbstractButton& widget, int valued);
  QAbstractButton& button() const { return button_; }

 private:
  const form::Captioned& control_;
  QAbstractButton& button_;
  form::Color foreColor_ = form::kButtonText;
  form::Color backColor_ = form::kButtonFace;
};

class CheckBoxBinding : public ButtonBinding {
 public:
  CheckBoxBinding(form::CheckBox& control, QAbstractButton& widget);
  void show() override;

 private:
  form::CheckBox& control_;
};

class OptionButtonBinding : public ButtonBinding {
 public:
  OptionButtonBinding(form::OptionButton& control, QAbstractButton& widget);
  void show() override;

 private:
  form::OptionButton& control_;
};

}  // namespace vireon::adapters
