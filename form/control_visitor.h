#pragma once

#include "form/buttons.h"
#include "form/fields.h"
#include "form/grid.h"
#include "form/picture_box.h"
#include "form/ranges.h"
#include "form/status_bar.h"
#include "form/tab_control.h"
#include "form/timer.h"

namespace vireon::form {

// Meets each control as the kind that it is.
class ControlVisitor {
 public:
  ControlVisitor() = default;
  ControlVisitor(const ControlVisitor&) = delete;
  ControlVisitor& operator=(const ControlVisitor&) = delete;
  virtual ~ControlVisitor() = default;

  virtual void visit(Button& control) = 0;
  virtual void visit(CheckBox& control) = 0;
  virtual void visit(OptionButton& control) = 0;
  virtual void visit(Label& control) = 0;
  virtual void visit(TextBox& control) = 0;
  virtual void visit(ComboBox& control) = 0;
  virtual void visit(Slider& control) = 0;
  virtual void visit(ProgressBar& control) = 0;
  virtual void visit(PictureBox& control) = 0;
  virtual void visit(Shape& control) = 0;
  virtual void visit(Timer& control) = 0;
  virtual void visit(TabControl& control) = 0;
  virtual void visit(StatusBar& control) = 0;
  virtual void visit(Grid& control) = 0;
};

}  // namespace vireon::form
