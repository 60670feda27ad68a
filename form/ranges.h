#pragma once

#include <string>
#include <utility>

#include "form/control.h"

namespace vireon::form {

// A control whose value is a whole number within a range.
class Ranged : public Control {
 public:
  Ranged(Form& form, std::string name) : Control(form, std::move(name)) {}

  int minimum() const { return minimum_; }
  int maximum() const { return maximum_; }
  // Sets both ends; a value outside moves to the nearer end, without an event. Faults (kPropertyValue) when
  // the minimum is above the maximum.
  void setRange(int minimum, int maximum);

  int value() const { return value_; }

 protected:
  // Returns whether the value is a new one. Faults (kPropertyValue) outside the range.
  bool assignValue(int value);

 private:
  int minimum_ = 0;
  int maximum_ = 255;
  int value_ = 0;
};

// A knob that slides from minimum to maximum.
class Slider : public Ranged {
 public:
  Slider(Form& form, std::string name) : Ranged(form, std::move(name)) {}

  // Raises onChange when the value is a new one. Faults (kPropertyValue) outside the range.
  void setValue(int value);
  Handler onChange;

  void accept(ControlVisitor& visitor) override;

 protected:
  bool isInput() const override { return true; }
};

// A bar that fills from minimum to maximum.
class ProgressBar : public Ranged {
 public:
  ProgressBar(Form& form, std::string name) : Ranged(form, std::move(name)) {}

  // Faults (kPropertyValue) outside the range.
  void setValue(int value) { assignValue(value); }

  void accept(ControlVisitor& visitor) override;
};

}  // namespace vireon::form
