#pragma once

#include <string>
#include <utility>

#include "form/control.h"

namespace vireon::form {

// A clockwork that raises its event again and again while it is enabled.
class Timer : public Control {
 public:
  // Starts disabled.
  Timer(Form& form, std::string name) : Control(form, std::move(name)) { setEnabled(false); }

  // Milliseconds between two ticks; with 0 the timer never ticks. Faults (kPropertyValue) below 0.
  int interval() const { return interval_; }
  void setInterval(int milliseconds);

  // What the passing of one interval does; nothing while the timer is disabled or its interval is 0.
  void tick() const;
  Handler onTimer;

  void accept(ControlVisitor& visitor) override;

 private:
  int interval_ = 0;
};

}  // namespace vireon::form
