#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/compound_file.h"
#include "tests/fakes/fault_count.h"

namespace vireon::tests {

// Containers that are a mark and the workbook's bytes.
class FakeCompoundFiles final : public platform::CompoundFiles {
 public:
  static constexpr std::string_view kMark = "compound:";

  // What goes wrong, at every call.
  std::optional<platform::PackError> packError;
  std::optional<platform::UnpackError> unpackError;

  // What happened.
  int packs = 0;
  int unpacks = 0;

  platform::PackResult pack(std::string_view workbook) override {
    ++packs;
    if (packError) {
      countFault();
      return {{}, *packError};
    }
    return {std::string(kMark).append(workbook), platform::PackError::kNone};
  }

  platform::UnpackResult unpack(std::string_view file, std::size_t limit) override {
    ++unpacks;
    if (unpackError) {
      countFault();
      return {{}, *unpackError};
    }
    if (!file.starts_with(kMark)) return {{}, platform::UnpackError::kNotCompound};
    file.remove_prefix(kMark.size());
    if (file.size() > limit) return {{}, platform::UnpackError::kTooLarge};
    return {std::string(file), platform::UnpackError::kNone};
  }
};

}  // namespace vireon::tests
