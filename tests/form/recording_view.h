#pragma once

#include <string>
#include <vector>

#include "form/control.h"

namespace vireon::tests {

// Keeps the names of the controls that it was told of, in order.
class RecordingView final : public form::ControlView {
 public:
  void changed(const form::Control& control) override { changes.push_back(control.name()); }
  void refresh(const form::Control& control) override { refreshed.push_back(control.name()); }
  void shieldMoved(bool up) override { shields.push_back(up); }

  std::vector<std::string> changes;
  std::vector<std::string> refreshed;
  std::vector<bool> shields;  // True where the shield went up
};

}  // namespace vireon::tests
