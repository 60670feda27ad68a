#include "adapters/qt/button_bindings.h"

#include <QFont>
#include <QKeySequence>
#include <QSignalBlocker>
#include <QVariant>
#include <utility>

#include "adapters/qt/colors.h"
#include "adapters/qt/text.h"

namespace vireon::adapters {

CaptionBinding::CaptionBinding(const form::Captioned& control, QAbstractButton& widget, const ModalGate& gate)
    : Binding(&widget, gate), control_(control), button_(widget) {}

void CaptionBinding::show() {
  const QString caption = shown(control_.caption());
  if (button_.text() != caption) {
    // A new text takes the shortcut away.
    const QKeySequence shortcut = button_.shortcut();
    button_.setText(caption);
    button_.setShortcut(shortcut);
  }
  if (foreColor_ != control_.foreColor()) {
    foreColor_ = control_.foreColor();
    paint(button_, QPalette::ButtonText, foreColor_);
    paint(button_, QPalette::WindowText, foreColor_);
    QFont weight;  // size and family stay the panel's
    weight.setBold(!foreColor_.isSystem());
    button_.setFont(weight);
  }
  if (backColor_ != control_.backColor()) {
    backColor_ = control_.backColor();
    paint(button_, QPalette::Button, backColor_);
    paint(button_, QPalette::ButtonText, backColor_.isSystem() ? foreColor_ : form::kBlack);
  }
}

ButtonBinding::ButtonBinding(const form::Button& control, QAbstractButton& widget, const ModalGate& gate)
    : CaptionBinding(control, widget, gate) {
  QObject::connect(&widget, &QAbstractButton::clicked, &widget,
                   [this, &control, &widget] { act(widget, [&control] { control.click(); }); });
}

void ButtonBinding::enable(bool enabled) {
  const QWidget& window = *button().window();
  const bool hadFocus = window.focusWidget() == &button();
  Binding::enable(enabled);
  if (!enabled && hadFocus) {
    lostFocus_ = true;
    focusAfter_ = window.focusWidget();
  } else if (enabled && std::exchange(lostFocus_, false) && window.focusWidget() == focusAfter_) {
    button().setFocus();
  }
}

ActionBinding::ActionBinding(const form::Button& control, QAction& action, const ModalGate& gate)
    : Binding(nullptr, gate), control_(control), action_(action) {
  QObject::connect(&action, &QAction::triggered, &action,
                   [this] { act(action_, [this] { control_.click(); }); });
}

void ActionBinding::show() {
  action_.setText(shown(control_.caption()));
  action_.setEnabled(control_.takesInput());
  action_.setVisible(control_.visible());
}

CheckBoxBinding::CheckBoxBinding(form::CheckBox& control, QAbstractButton& widget, const ModalGate& gate)
    : CaptionBinding(control, widget, gate), control_(control) {
  for (QWidget* other : widget.window()->findChildren<QWidget*>()) {
    if (other->property("signOf").toString() == widget.objectName()) {
      signs_.push_back(other);
    }
  }
  QObject::connect(&widget, &QAbstractButton::toggled, &widget, [this](bool checked) {
    act(button(), [this, checked] { control_.setValue(checked ? 1 : 0); });
  });
}

void CheckBoxBinding::show() {
  CaptionBinding::show();
  const QSignalBlocker blocker(button());
  button().setChecked(control_.value() == 1);
  for (QWidget* sign : signs_) {
    sign->setVisible(control_.value() == 1);
  }
}

OptionButtonBinding::OptionButtonBinding(form::OptionButton& control, QAbstractButton& widget,
                                         const ModalGate& gate)
    : CaptionBinding(control, widget, gate), control_(control) {
  QObject::connect(&widget, &QAbstractButton::toggled, &widget, [this](bool checked) {
    act(button(), [this, checked] {
      if (checked) {
        control_.setValue(true);
      }
    });
  });
}

void OptionButtonBinding::show() {
  CaptionBinding::show();
  const QSignalBlocker blocker(button());
  if (button().isChecked() != control_.value()) {
    button().setAutoExclusive(false);
    button().setChecked(control_.value());
    button().setAutoExclusive(true);
  }
}

}  // namespace vireon::adapters
