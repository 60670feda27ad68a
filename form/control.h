#pragma once

#include <functional>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "form/color.h"
#include "form/fault.h"

namespace vireon::form {

class Control;
class ControlVisitor;

using Handler = std::function<void()>;

// Shows controls. The controls tell it what changed; it never outlives the form it shows.
class ControlView {
 public:
  ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;
  virtual ~ControlView() = default;

  // A property of the control has a new value; show it when convenient.
  virtual void changed(const Control& control) = 0;

  // Show the control's present state before returning.
  virtual void refresh(const Control& control) = 0;

  // The shield went up or down: show at once which controls take input.
  virtual void shieldMoved(bool up) = 0;
};

// A window: owner of the list of its controls, and its caption.
class Form {
 public:
  explicit Form(std::string caption) : caption_(std::move(caption)) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  ~Form() = default;

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);
  std::function<void()> onCaptionChanged;

  // All controls in the order of their declaration; valid as long as the form.
  const std::vector<Control*>& controls() const { return controls_; }

  // Every later change of any control is told to `view`; null ends that.
  void setView(ControlView* view);

  // While the shield is up no control takes the user's input but those in `open`; the program moves all of
  // them as ever.
  void raiseShield(const std::vector<const Control*>& open);
  void lowerShield();

  // Runs an event's handler, or anything else that an event loop calls. Memory that runs out ends that and is
  // not thrown on: whoever called goes on, and at the end of the outermost one the user is told, once.
  template <class Action>
  void attend(const Action& action) {
    const Attending attending(*this);
    try {
      action();
    } catch (const std::bad_alloc&) {
      // A form of its own, without anybody who would tell.
      if (!onOutOfMemory) {
        throw;
      }
      memoryRanOut_ = true;
    }
  }

  // Memory ran out in a handler, which has ended, as have those that it was called by.
  std::function<void()> onOutOfMemory;

 private:
  friend class Control;
  // One handler at work.
  class Attending {
   public:
    explicit Attending(Form& form) : form_(form) { ++form_.attended_; }
    Attending(const Attending&) = delete;
    Attending& operator=(const Attending&) = delete;
    ~Attending() {
      if (--form_.attended_ == 0) {
        form_.tellOutOfMemory();
      }
    }

   private:
    Form& form_;
  };
  void tellOutOfMemory();
  void shieldMoved(bool up) const;

  std::string caption_;
  int attended_ = 0;  // handlers, one inside the other
  bool memoryRanOut_ = false;
  std::vector<Control*> controls_;
  ControlView* view_ = nullptr;
};

// What all controls share. Texts are code page 1252, one byte one character.
class Control {
 public:
  // `name` is the form name, an array element's followed by "_" and its index, e.g. "optFun_3".
  Control(Form& form, std::string name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const std::string& name() const { return name_; }

  bool visible() const { return visible_; }
  void setVisible(bool visible) { assign(visible_, visible); }
  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled) { assign(enabled_, enabled); }

  // Whether the form's shield keeps the user's input from the control.
  bool shielded() const { return shielded_; }
  bool takesInput() const { return enabled_ && !shielded_; }

  // Shows the present state at once, without waiting for the window's next turn.
  void refresh() const;

  virtual void accept(ControlVisitor& visitor) = 0;

 protected:
  // Whether the user sets something with it; panels, displays and timers are none.
  virtual bool isInput() const { return false; }

  // Tells the view when the value is a new one; returns whether it is.
  template <class T, class U>
  bool assign(T& property, U&& value) {
    if (property == value) {
      return false;
    }
    property = std::forward<U>(value);
    touch();
    return true;
  }
  void touch() const;
  template <class Event, class... Arguments>
  void raise(const Event& event, Arguments... arguments) const {
    if (event) {
      form_.attend([&] { event(arguments...); });
    }
  }
  template <class Action>
  void attend(const Action& action) const {
    form_.attend(action);
  }

 private:
  friend class Form;
  Form& form_;
  std::string name_;
  ControlView* view_ = nullptr;
  bool visible_ = true;
  bool enabled_ = true;
  bool shielded_ = false;
};

}  // namespace vireon::form
