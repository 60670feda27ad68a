#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "form/main_form.h"

namespace vireon::tests {

using Lamps = std::pair<std::uint32_t, std::uint32_t>;  // transmit, receive

inline constexpr std::uint32_t kRedLamp = 255;
inline constexpr std::uint32_t kGreenLamp = 65280;
inline constexpr std::uint32_t kWhiteLamp = 16777215;

// What the lamps show each time the window must paint them at once.
class LampView : public form::ControlView {
 public:
  explicit LampView(const form::MainForm& form) : form_(form) {}

  void changed(const form::Control&) override {}
  void refresh(const form::Control& control) override {
    if (&control == &form_.Txled[0]) {
      shown_.first = form_.Txled[0].fillColor().value;
    } else if (&control == &form_.Txled[1]) {
      shown_.second = form_.Txled[1].fillColor().value;
    }
    if (painted.empty() || painted.back() != shown_) {
      painted.push_back(shown_);
    }
  }

  void shieldMoved(bool) override {}

  Lamps shown() const { return shown_; }

  std::vector<Lamps> painted;  // each new state once

 private:
  const form::MainForm& form_;
  Lamps shown_{kWhiteLamp, kWhiteLamp};
};

}  // namespace vireon::tests
