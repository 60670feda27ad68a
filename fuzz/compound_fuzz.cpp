#include <cstdint>
#include <string_view>

#include "adapters/spreadsheet/gsf_compound_files.h"
#include "files/import_rows.h"
#include "files/workbook.h"
#include "fuzz/require.h"

// An input is a compound file. The workbook that is in it is read; it is packed and unpacked unchanged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vireon::fuzz::require;
  using vireon::platform::PackError;
  using vireon::platform::UnpackError;
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
  const auto packed = compound.pack(unpacked.workbook);
  require(packed.error == PackError::kNone);
  const auto again = compound.unpack(packed.file, vireon::files::kLargestWorkbook);
  require(again.error == UnpackError::kNone && again.workbook == unpacked.workbook);
  return 0;
}
