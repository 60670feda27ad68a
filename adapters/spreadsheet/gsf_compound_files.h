#pragma once

#include <memory>
#include <mutex>

#include "platform/compound_file.h"

namespace vireon::adapters {

struct GsfLibrary;

// Compound files by libgsf, which is loaded for the first of them. It is shown only such containers as
// containerFault() finds nothing in.
class GsfCompoundFiles final : public platform::CompoundFiles {
 public:
  GsfCompoundFiles();
  // By another file of the library; the name outlives this object.
  explicit GsfCompoundFiles(const char* library);
  GsfCompoundFiles(const GsfCompoundFiles&) = delete;
  GsfCompoundFiles& operator=(const GsfCompoundFiles&) = delete;
  ~GsfCompoundFiles() override;

  platform::PackResult pack(std::string_view workbook) override;
  platform::UnpackResult unpack(std::string_view file, std::size_t limit) override;

 private:
  // Null where it cannot be loaded.
  const GsfLibrary* library();

  const char* name_;
  std::once_flag asked_;
  std::unique_ptr<const GsfLibrary> gsf_;
};

}  // namespace vireon::adapters
