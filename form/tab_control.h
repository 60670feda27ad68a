#pragma once

#include <string>
#include <utility>
#include <vector>

#include "form/control.h"

namespace vireon::form {

// A strip of tabs of which one is shown.
class TabControl : public Control {
 public:
  TabControl(Form& form, std::string name) : Control(form, std::move(name)) {}

  int tabs() const { return static_cast<int>(captions_.size()); }
  const std::vector<std::string>& captions() const { return captions_; }
  // One tab for each caption; a shown tab that is cut off gives way to tab 0, without an event. Faults
  // (kPropertyValue) without any.
  void setCaptions(std::vector<std::string> captions);
  // Keeps the first `count` tabs; more than there are adds tabs without a caption. A shown tab that
  // is cut off gives way to tab 0, without an event. Faults (kPropertyValue) below 1.
  void setTabs(int count);

  int tab() const { return tab_; }
  // Raises onSwitch when the tab is a new one. Faults (kPropertyValue) for a tab that there is not.
  void setTab(int tab);
  Handler onSwitch;

  // What the user's choice of a tab does while the strip is disabled: shows it and raises onLook instead.
  void look(int tab);
  Handler onLook;

  void accept(ControlVisitor& visitor) override;

 protected:
  bool isInput() const override { return true; }

 private:
  bool choose(int tab);

  std::vector<std::string> captions_{""};
  int tab_ = 0;
};

}  // namespace vireon::form
