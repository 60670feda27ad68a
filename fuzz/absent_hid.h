#pragma once

#include <vector>

#include "platform/raw_hid.h"

namespace vireon::fuzz {

// No device; counts how often the program wanted to send.
class AbsentHid final : public platform::RawHid {
 public:
  std::vector<platform::HidNode> list() override {
    ++searches;
    return {};
  }
  platform::HidOpenResult open(const platform::HidNode& /*node*/) override {
    return {nullptr, platform::HidOpenError::kNotFound};
  }
  int searches = 0;
};

}  // namespace vireon::fuzz
