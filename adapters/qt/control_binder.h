#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <unordered_map>
#include <vector>

#include "adapters/qt/binding.h"
#include "adapters/qt/modal_gate.h"
#include "form/control_visitor.h"

namespace vireon::adapters {

// Binds each control of a form to the widget of its name below a root widget: the widgets show the controls,
// and what the user does to a widget is done to its control. Changes are shown together, latest state only,
// at most once in kPace; the first after a pause at the next turn of the event loop.
class ControlBinder : public QObject, public form::ControlView, private form::ControlVisitor {
  Q_OBJECT

 public:
  static constexpr int kPace = 16;  // milliseconds, one picture of a 60 Hz screen

  // All three outlive the binder.
  ControlBinder(form::Form& form, QWidget& root, const ModalGate& gate);
  Q_DISABLE_COPY_MOVE(ControlBinder)
  ~ControlBinder() override;

  void changed(const form::Control& control) override;
  void refresh(const form::Control& control) override;
  void shieldMoved(bool up) override;

  // Shows every waiting change now.
  void flush();

  // Shows every control anew, e.g. after the widgets were moved.
  void showAll();

  // Names of the controls that have no widget of a fitting kind; empty in a sound form file.
  const std::vector<std::string>& unbound() const { return unbound_; }

 private:
  void visit(form::Button& control) override;
  void visit(form::CheckBox& control) override;
  void visit(form::OptionButton& control) override;
  void visit(form::Label& control) override;
  void visit(form::TextBox& control) override;
  void visit(form::ComboBox& control) override;
  void visit(form::Slider& control) override;
  void visit(form::ProgressBar& control) override;
  void visit(form::PictureBox& control) override;
  void visit(form::Shape& control) override;
  void visit(form::Timer& control) override;
  void visit(form::TabControl& control) override;
  void visit(form::StatusBar& control) override;
  void visit(form::Grid& control) override;

  template <class BindingType, class Widget, class Control>
  void bind(Control& control);
  void show(const form::Control& control, Binding& binding);
  void findCompanions();
  bool isShown(const form::Control& control) const;

  form::Form& form_;
  QWidget& root_;
  const ModalGate& gate_;
  std::unordered_map<const form::Control*, std::unique_ptr<Binding>> bindings_;
  std::vector<const form::Control*> waiting_;
  std::vector<const form::Control*> spare_;  // empty; takes over while those that waited are shown
  std::vector<std::string> unbound_;
  std::unordered_multimap<const form::Control*, const form::Control*> companions_;  // by their panel
  std::unordered_map<const form::Control*, const form::Control*> panels_;           // and the other way round
  QPointer<QWidget> focusBefore_;                                                   // the shield
  QTimer pacer_;
  QElapsedTimer sinceFlush_;
  std::unordered_map<const form::Control*, QElapsedTimer> sinceRefresh_;
};

}  // namespace vireon::adapters
