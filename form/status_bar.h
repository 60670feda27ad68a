#pragma once

#include <array>
#include <string>
#include <utility>

#include "form/control.h"

namespace vireon::form {

// The line of panels at the window's lower edge; panels count from 1. Its texts are UTF-8, for
// they name files.
class StatusBar : public Control {
 public:
  static constexpr int kPanels = 2;

  StatusBar(Form& form, std::string name) : Control(form, std::move(name)) {}

  // Fault (kBounds) outside 1 to kPanels.
  const std::string& panel(int number) const;
  void setPanel(int number, std::string text);

  // A longer text behind a panel, for the pointer that rests on it.
  const std::string& toolTip(int number) const;
  void setToolTip(int number, std::string text);

  void accept(ControlVisitor& visitor) override;

 private:
  std::array<std::string, kPanels> texts_;
  std::array<std::string, kPanels> toolTips_;
};

}  // namespace vireon::form
