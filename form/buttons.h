#pragma once

#include <string>
#include <utility>
#include <vector>

#include "form/captioned.h"

namespace vireon::form {

// A push button without a state.
class Button : public Captioned {
 public:
  Button(Form& form, std::string name) : Captioned(form, std::move(name)) {}

  // What a user's click does; nothing while the button takes no input.
  void click() const {
    if (takesInput()) {
      raise(onClick);
    }
  }
  Handler onClick;

  void accept(ControlVisitor& visitor) override;

 protected:
  bool isInput() const override { return true; }
};

// A check box or toggle button: value 1 is checked, 0 is not.
class CheckBox : public Captioned {
 public:
  CheckBox(Form& form, std::string name) : Captioned(form, std::move(name)) {}

  int value() const { return value_; }
  // Raises onClick when the value is a new one. Faults (kPropertyValue) outside 0 and 1.
  void setValue(int value);
  Handler onClick;

  void accept(ControlVisitor& visitor) override;

 protected:
  bool isInput() const override { return true; }

 private:
  int value_ = 0;
};

// One choice of several that exclude each other; see OptionGroup.
class OptionButton : public Captioned {
 public:
  OptionButton(Form& form, std::string name) : Captioned(form, std::move(name)) {}

  bool value() const { return value_; }
  // Selecting clears the others of its group and raises onClick when it was not selected before;
  // clearing raises nothing.
  void setValue(bool value);
  Handler onClick;

  void accept(ControlVisitor& visitor) override;

 protected:
  bool isInput() const override { return true; }

 private:
  template <std::size_t N>
  friend class OptionGroup;
  bool value_ = false;
  std::vector<OptionButton*> group_;
};

}  // namespace vireon::form
