#include "adapters/qt/field_bindings.h"

#include <QEvent>
#include <QFocusEvent>
#include <QSignalBlocker>
#include <QVariant>

#include "adapters/qt/colors.h"
#include "adapters/qt/text.h"

namespace vireon::adapters {
namespace {

bool byKey(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
         reason == Qt::ShortcutFocusReason;
}

}  // namespace

LabelBinding::LabelBinding(const form::Label& control, QLabel& widget, const ModalGate& gate)
    : Binding(&widget, gate), control_(control), label_(widget) {}

void LabelBinding::show() {
  const QString caption = shown(control_.caption());
  if (label_.text() != caption) {
    label_.setText(caption);
  }
  if (foreColor_ != control_.foreColor()) {
    foreColor_ = control_.foreColor();
    paint(label_, QPalette::WindowText, foreColor_);
  }
  if (label_.dynamicPropertyNames().contains("placed")) {
    if (const auto* picture = qobject_cast<const PictureView*>(label_.parentWidget())) {
      place(*picture);
    }
  }
}

void LabelBinding::place(const PictureView& picture) {
  const QPoint corner = picture.fromTwips(control_.left(), control_.top()).toPoint();
  const bool sideways = label_.property("placed").toString().startsWith(QLatin1Char('x'));
  label_.move(sideways ? corner.x() : label_.x(), corner.y());
}

TextBoxBinding::TextBoxBinding(form::TextBox& control, QLineEdit& widget, const ModalGate& gate)
    : Binding(&widget, gate), control_(control), edit_(widget) {
  // Edited by whomever: an assistive technology does not type.
  connect(&widget, &QLineEdit::textChanged, this, [this](const QString& text) {
    act(edit_, [this, text] {
      control_.type(typed(text));
      show();
    });
  });
  connect(&widget, &QLineEdit::returnPressed, this, [this] { control_.keyPress('\r'); });
  widget.installEventFilter(this);
}

void TextBoxBinding::show() {
  const QString text = shownUtf8(control_.utf8());
  if (edit_.text() != text) {
    const QSignalBlocker quiet(edit_);
    edit_.setText(text);
  }
  edit_.setReadOnly(control_.readOnly());
}

bool TextBoxBinding::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress && edit_.isEnabled()) {
    control_.mouseDown();
  }
  if (event->type() == QEvent::FocusIn && byKey(static_cast<QFocusEvent*>(event)->reason())) {
    control_.focus();
  }
  return QObject::eventFilter(object, event);
}

ComboBoxBinding::ComboBoxBinding(form::ComboBox& control, QComboBox& widget, const ModalGate& gate)
    : Binding(&widget, gate), control_(control), combo_(widget) {
  QObject::connect(&widget, &QComboBox::activated, &widget,
                   [this](int index) { act(combo_, [this, index] { control_.setListIndex(index); }); });
}

void ComboBoxBinding::show() {
  const QSignalBlocker blocker(combo_);
  const auto& items = control_.items();
  if (combo_.count() != static_cast<int>(items.size())) {
    combo_.clear();
    for (const std::string& item : items) {
      combo_.addItem(shown(item));
    }
  }
  combo_.setCurrentIndex(control_.listIndex());
}

SliderBinding::SliderBinding(form::Slider& control, EdgeSlider& widget, const ModalGate& gate)
    : Binding(&widget, gate), control_(control), slider_(widget) {
  QObject::connect(&widget, &EdgeSlider::moveCompleted, &widget, [this] { take(slider_.value()); });
  // A value set at one go, by an assistive technology.
  QObject::connect(&widget, &EdgeSlider::valueChanged, &widget, [this](int value) {
    if (!slider_.moving()) {
      take(value);
    }
  });
}

void SliderBinding::take(int value) {
  act(slider_, [this, value] { control_.setValue(value); });
}

void SliderBinding::show() {
  if (slider_.moving()) {
    return;
  }
  const QSignalBlocker blocker(slider_);
  slider_.setRange(control_.minimum(), control_.maximum());
  slider_.setValue(control_.value());
}

}  // namespace vireon::adapters
