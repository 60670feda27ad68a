#include "adapters/qt/control_binder.h"

#include <algorithm>
#include <utility>

#include "adapters/qt/button_bindings.h"
#include "adapters/qt/field_bindings.h"
#include "adapters/qt/panel_bindings.h"
#include "adapters/qt/text.h"
#include "adapters/qt/timer_binding.h"

namespace vireon::adapters {
namespace {

// A picture with the dynamic property "frame" is shown and hidden together with that ancestor.
QWidget& shownWidget(QWidget& widget) {
  const QString frame = widget.property("frame").toString();
  for (QWidget* above = widget.parentWidget(); !frame.isEmpty() && above != nullptr;
       above = above->parentWidget()) {
    if (above->objectName() == frame) {
      return *above;
    }
  }
  return widget;
}

}  // namespace

ControlBinder::ControlBinder(form::Form& form, QWidget& root, const ModalGate& gate)
    : form_(form), root_(root), gate_(gate) {
  pacer_.setSingleShot(true);
  pacer_.setTimerType(Qt::PreciseTimer);
  connect(&pacer_, &QTimer::timeout, this, &ControlBinder::flush);
  for (form::Control* control : form.controls()) {
    control->accept(*this);
  }
  // A change must be taken in where no memory is left.
  waiting_.reserve(bindings_.size());
  spare_.reserve(bindings_.size());
  findCompanions();
  showAll();
  form.setView(this);
}

ControlBinder::~ControlBinder() {
  form_.setView(nullptr);
}

template <class BindingType, class Widget, class Control>
void ControlBinder::bind(Control& control) {
  auto* widget = root_.findChild<Widget*>(shown(control.name()));
  if (widget == nullptr) {
    unbound_.push_back(control.name());
    return;
  }
  bindings_.emplace(&control, std::make_unique<BindingType>(control, *widget, gate_));
}

void ControlBinder::changed(const form::Control& control) {
  const auto entry = bindings_.find(&control);
  if (entry == bindings_.end() || entry->second->waiting) {
    return;
  }
  if (entry->second->widget() == nullptr) {
    entry->second->show();
    return;
  }
  entry->second->waiting = true;
  waiting_.push_back(&control);
  if (!pacer_.isActive()) {
    const qint64 elapsed = sinceFlush_.isValid() ? sinceFlush_.elapsed() : kPace;
    pacer_.start(static_cast<int>(std::clamp<qint64>(kPace - elapsed, 0, kPace)));
  }
}

void ControlBinder::refresh(const form::Control& control) {
  const auto entry = bindings_.find(&control);
  if (entry == bindings_.end() || !entry->second->waiting) {
    return;
  }
  QElapsedTimer& since = sinceRefresh_[&control];
  if (!since.isValid() || since.hasExpired(kPace)) {
    since.start();
    show(control, *entry->second);
    entry->second->widget()->repaint();
  }
}

// A widget that can take no input loses the focus; it is given back.
void ControlBinder::shieldMoved(bool up) {
  if (up) {
    focusBefore_ = root_.focusWidget();
  }
  flush();
  if (QWidget* const before = focusBefore_.data(); !up && before != nullptr && before->isEnabled()) {
    before->setFocus();
  }
}

void ControlBinder::flush() {
  sinceFlush_.start();
  auto waiting = std::exchange(waiting_, std::exchange(spare_, {}));
  for (const form::Control* control : waiting) {
    Binding& binding = *bindings_.at(control);
    binding.waiting = false;
    show(*control, binding);
  }
  waiting.clear();
  spare_ = std::move(waiting);
}

void ControlBinder::showAll() {
  for (const auto& [control, binding] : bindings_) {
    show(*control, *binding);
  }
}

void ControlBinder::show(const form::Control& control, Binding& binding) {
  if (QWidget* const widget = binding.widget()) {
    QWidget& frame = shownWidget(*widget);
    const bool visible = isShown(control);
    if (frame.isHidden() == visible) {
      frame.setVisible(visible);
    }
    binding.enable(control.takesInput());
  }
  binding.show();
  const auto [first, last] = companions_.equal_range(&control);
  for (auto companion = first; companion != last; ++companion) {
    show(*companion->second, *bindings_.at(companion->second));
  }
}

// A widget with the dynamic property "with" stands outside the panel that it names, so that it stays usable
// while that is disabled, but is shown together with it.
void ControlBinder::findCompanions() {
  for (const auto& [control, binding] : bindings_) {
    const QString panel =
        binding->widget() == nullptr ? QString() : binding->widget()->property("with").toString();
    for (const form::Control* other : form_.controls()) {
      if (!panel.isEmpty() && shown(other->name()) == panel) {
        companions_.emplace(other, control);
        panels_.emplace(control, other);
      }
    }
  }
}

bool ControlBinder::isShown(const form::Control& control) const {
  const auto panel = panels_.find(&control);
  return control.visible() && (panel == panels_.end() || panel->second->visible());
}

void ControlBinder::visit(form::Button& control) {
  if (auto* const action = root_.findChild<QAction*>(shown(control.name()))) {
    bindings_.emplace(&control, std::make_unique<ActionBinding>(control, *action, gate_));
  } else {
    bind<ButtonBinding, QAbstractButton>(control);
  }
}
void ControlBinder::visit(form::CheckBox& control) {
  bind<CheckBoxBinding, QAbstractButton>(control);
}
void ControlBinder::visit(form::OptionButton& control) {
  bind<OptionButtonBinding, QAbstractButton>(control);
}
void ControlBinder::visit(form::Label& control) {
  bind<LabelBinding, QLabel>(control);
}
void ControlBinder::visit(form::TextBox& control) {
  bind<TextBoxBinding, QLineEdit>(control);
}
void ControlBinder::visit(form::ComboBox& control) {
  bind<ComboBoxBinding, QComboBox>(control);
}
void ControlBinder::visit(form::Slider& control) {
  bind<SliderBinding, EdgeSlider>(control);
}
void ControlBinder::visit(form::ProgressBar& control) {
  bind<ProgressBarBinding, QProgressBar>(control);
}
void ControlBinder::visit(form::PictureBox& control) {
  bind<PictureBoxBinding, QWidget>(control);
}
void ControlBinder::visit(form::Shape& control) {
  bind<ShapeBinding, Lamp>(control);
}
void ControlBinder::visit(form::TabControl& control) {
  bind<TabControlBinding, QTabBar>(control);
}
void ControlBinder::visit(form::StatusBar& control) {
  bind<StatusBarBinding, QWidget>(control);
}
void ControlBinder::visit(form::Grid& control) {
  bind<GridBinding, QTableView>(control);
}

void ControlBinder::visit(form::Timer& control) {
  bindings_.emplace(&control, std::make_unique<TimerBinding>(control, gate_));
}

}  // namespace vireon::adapters
