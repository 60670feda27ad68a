#include "tests/soak/used_controls.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QTabBar>
#include <QTableView>

#include "adapters/qt/edge_slider.h"
#include "form/control_visitor.h"

namespace vireon::soak {
namespace {

// The names of the controls that take input.
class InputControls : public form::ControlVisitor {
 public:
  std::vector<std::string> names;

  void visit(form::Button& control) override { names.push_back(control.name()); }
  void visit(form::CheckBox& control) override { names.push_back(control.name()); }
  void visit(form::OptionButton& control) override { names.push_back(control.name()); }
  void visit(form::TextBox& control) override {
    if (!control.readOnly()) {
      names.push_back(control.name());
    }
  }
  void visit(form::ComboBox& control) override { names.push_back(control.name()); }
  void visit(form::Slider& control) override { names.push_back(control.name()); }
  void visit(form::TabControl& control) override { names.push_back(control.name()); }
  void visit(form::Grid& control) override { names.push_back(control.name()); }
  void visit(form::Label& /*control*/) override {}
  void visit(form::ProgressBar& /*control*/) override {}
  void visit(form::PictureBox& /*control*/) override {}
  void visit(form::Shape& /*control*/) override {}
  void visit(form::Timer& /*control*/) override {}
  void visit(form::StatusBar& /*control*/) override {}
};

}  // namespace

void UsedControls::follow(form::MainForm& form, QWidget& window) {
  InputControls inputs;
  for (form::Control* const control : form.controls()) {
    control->accept(inputs);
  }
  for (const std::string& name : inputs.names) {
    uses_.try_emplace(name, 0);
    const QString key = QString::fromStdString(name);
    if (auto* const action = window.findChild<QAction*>(key)) {
      QObject::connect(action, &QAction::triggered, action, [this, name] { ++uses_[name]; });
    } else if (auto* const widget = window.findChild<QWidget*>(key)) {
      followWidget(name, *widget);
    }
  }
}

void UsedControls::followWidget(const std::string& name, QWidget& widget) {
  const auto used = [this, name] { ++uses_[name]; };
  if (auto* const button = qobject_cast<QAbstractButton*>(&widget)) {
    QObject::connect(button, &QAbstractButton::clicked, button, used);
  } else if (auto* const combo = qobject_cast<QComboBox*>(&widget)) {
    QObject::connect(combo, &QComboBox::activated, combo, used);
  } else if (auto* const line = qobject_cast<QLineEdit*>(&widget)) {
    QObject::connect(line, &QLineEdit::textEdited, line, used);
  } else if (auto* const slider = qobject_cast<adapters::EdgeSlider*>(&widget)) {
    QObject::connect(slider, &adapters::EdgeSlider::moveCompleted, slider, used);
  } else if (auto* const tabs = qobject_cast<QTabBar*>(&widget)) {
    QObject::connect(tabs, &QTabBar::tabBarClicked, tabs, used);
  } else if (auto* const table = qobject_cast<QTableView*>(&widget)) {
    QObject::connect(table, &QTableView::pressed, table, used);
  }
}

void UsedControls::followViewer(QWidget& viewer) {
  for (QAction* const item : viewer.findChildren<QAction*>()) {
    const std::string name = item->objectName().toStdString();
    if (name.starts_with("mnu")) {
      uses_.try_emplace(name, 0);
      QObject::connect(item, &QAction::triggered, item, [this, name] { ++uses_[name]; });
    }
  }
}

std::uint64_t UsedControls::uses(const std::string& name) const {
  const auto known = uses_.find(name);
  return known == uses_.end() ? 0 : known->second;
}

std::vector<std::string> UsedControls::unused() const {
  std::vector<std::string> names;
  for (const auto& [name, uses] : uses_) {
    if (uses == 0) {
      names.push_back(name);
    }
  }
  return names;
}

}  // namespace vireon::soak
