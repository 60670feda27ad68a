#pragma once

#include "platform/compound_file.h"

namespace vireon::adapters {

// Compound files by libgsf, which is shown only such containers as containerFault() finds nothing in.
class GsfCompoundFiles final : public platform::CompoundFiles {
 public:
  GsfCompoundFiles();

  platform::PackResult pack(std::string_view workbook) override;
  platform::UnpackResult unpack(std::string_view file, std::size_t limit) override;
};

}  // namespace vireon::adapters
