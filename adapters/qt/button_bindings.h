#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QPointer>
#include <vector>

#include "adapters/qt/binding.h"
#include "form/buttons.h"

namespace vireon::adapters {

// What the three kinds of buttons share: caption and colours.
class CaptionBinding : public Binding {
 public:
  CaptionBinding(const form::Captioned& control, QAbstractButton& widget, const ModalGate& gate);
  void show() override;

 protected:
  QAbstractButton& button() const { return button_; }

 private:
  const form::Captioned& control_;
  QAbstractButton& button_;
  form::Color foreColor_ = form::kButtonText;
  form::Color backColor_ = form::kButtonFace;
};

class ButtonBinding : public CaptionBinding {
 public:
  ButtonBinding(const form::Button& control, QAbstractButton& widget, const ModalGate& gate);

  // A button that is disabled while it has the focus has it again when enabled, unless the user moved it on.
  void enable(bool enabled) override;

 private:
  bool lostFocus_ = false;
  QPointer<QWidget> focusAfter_;  // where the toolkit put it then
};

// A button that is an entry of a menu.
class ActionBinding : public Binding {
 public:
  ActionBinding(const form::Button& control, QAction& action, const ModalGate& gate);
  void show() override;

 private:
  const form::Button& control_;
  QAction& action_;
};

// Labels with the dynamic property "signOf" that names the check box are seen while it is checked.
class CheckBoxBinding : public CaptionBinding {
 public:
  CheckBoxBinding(form::CheckBox& control, QAbstractButton& widget, const ModalGate& gate);
  void show() override;

 private:
  form::CheckBox& control_;
  std::vector<QWidget*> signs_;
};

class OptionButtonBinding : public CaptionBinding {
 public:
  OptionButtonBinding(form::OptionButton& control, QAbstractButton& widget, const ModalGate& gate);
  void show() override;

 private:
  form::OptionButton& control_;
};

}  // namespace vireon::adapters
