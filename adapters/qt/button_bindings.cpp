#include "adapters/qt/button_bindings.h"

#include <QSignalBlocker>

#include "adapters/qt/colors.h"
#include "adapters/qt/text.h"

namespace vireon::adapters {

ButtonBinding::ButtonBinding(const form::Captioned& control, QAbstractButton& widget, int /*valued*/)
    : Binding(&widget), control_(control), button_(widget) {}

ButtonBinding::ButtonBinding(form::Button& control, QAbstractButton& widget)
    : Binding(&widget), control_(control), button_(widget) {
  QObject::connect(&widget, &QAbstractButton::clicked, &widget, [&control] { control.click(); });
}

void ButtonBinding::show() {
  const QString caption = shown(control_.caption());
  if (button_.text() != caption) {
    button_.setText(caption);
  }
  if (foreColor_ != control_.foreColor()) {
    foreColor_ = control_.foreColor();
    paint(button_, QPalette::ButtonText, foreColor_);
    paint(button_, QPalette::WindowText, foreColor_);
  }
  if (backColor_ != control_.backColor()) {
    backColor_ = control_.backColor();
    paint(button_, QPalette::Button, backColor_);
    if (!backColor_.isSystem()) {
      paint(button_, QPalette::ButtonText, form::kBlack);
    } else {
      paint(button_, QPalette::ButtonText, foreColor_);
    }
  }
}

CheckBoxBinding::CheckBoxBinding(form::CheckBox& control, QAbstractButton& widget)
    : ButtonBinding(control, widget, 1), control_(control) {
  QObject::connect(&widget, &QAbstractButton::clicked, &widget,
                   [&control](bool checked) { control.setValue(checked ? 1 : 0); });
}

void CheckBoxBinding::show() {
  ButtonBinding::show();
  const QSignalBlocker blocker(button());
  button().setChecked(control_.value() == 1);
}

OptionButtonBinding::OptionButtonBinding(form::OptionButton& control, QAbstractButton& widget)
    : ButtonBinding(control, widget, 1), control_(control) {
  QObject::connect(&widget, &QAbstractButton::clicked, &widget, [&control] { control.setValue(true); });
}

void OptionButtonBinding::show() {
  ButtonBinding::show();
  const QSignalBlocker blocker(button());
  if (button().isChecked() != control_.value()) {
    button().setAutoExclusive(false);
    button().setChecked(control_.value());
    button().setAutoExclusive(true);
  }
}

}  // namespace vireon::adapters
