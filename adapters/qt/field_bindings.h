#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "adapters/qt/binding.h"
#include "adapters/qt/edge_slider.h"
#include "adapters/qt/picture_view.h"
#include "form/fields.h"
#include "form/ranges.h"

namespace vireon::adapters {

// A label; one with the dynamic property "placed" ("y" or "xy") stands on its picture where the control says.
class LabelBinding : public Binding {
 public:
  LabelBinding(const form::Label& control, QLabel& widget, const ModalGate& gate);
  void show() override;

 private:
  void place(const PictureView& picture);

  const form::Label& control_;
  QLabel& label_;
  form::Color foreColor_ = form::kButtonText;
};

class TextBoxBinding : public QObject, public Binding {
 public:
  TextBoxBinding(form::TextBox& control, QLineEdit& widget, const ModalGate& gate);
  void show() override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  form::TextBox& control_;
  QLineEdit& edit_;
};

class ComboBoxBinding : public Binding {
 public:
  ComboBoxBinding(form::ComboBox& control, QComboBox& widget, const ModalGate& gate);
  void show() override;

 private:
  form::ComboBox& control_;
  QComboBox& combo_;
};

// A slider; the control learns of a move when it is complete.
class SliderBinding : public Binding {
 public:
  SliderBinding(form::Slider& control, EdgeSlider& widget, const ModalGate& gate);
  void show() override;

 private:
  void take(int value);

  form::Slider& control_;
  EdgeSlider& slider_;
};

}  // namespace vireon::adapters
