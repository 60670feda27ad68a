#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "adapters/spreadsheet/gsf_compound_files.h"
#include "files/import_rows.h"

namespace {

using vireon::platform::UnpackError;

void require(bool invariant) {
  if (!invariant) {
    std::abort();
  }
}

}  // namespace

// An input is a compound file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static vireon::adapters::GsfCompoundFiles compound;
  const auto unpacked = compound.unpack(std::string_view(reinterpret_cast<const char*>(data), size),
                                        vireon::files::kLargestWorkbook);
  require(unpacked.workbook.size() <= size);
  if (unpacked.error != UnpackError::kNone) {
    require(unpacked.workbook.empty());
    return 0;
  }
  const auto imported = vireon::files::importRows(unpacked.workbook);
  require(imported.error == vireon::files::WorkbookReadError::kNone || imported.rows.empty());
  return 0;
}
