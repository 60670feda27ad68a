#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/spreadsheet/gsf_compound_files.h"
#include "files/workbook_writer.h"
#include "tests/adapters/spreadsheet/container_bytes.h"
#include "tests/files/grid_text.h"
#include "tests/files/workbook_bytes.h"

namespace {

namespace biff = vireon::files::biff;
using namespace vireon::tests;

std::string written(const GridText& grid) {
  return vireon::files::writeWorkbookStream(sheetOf(grid)).stream;
}

// Every kind of record that the reader knows.
std::string everyKind() {
  const std::string noNumber = u8(0) + u8(0) + u8(0) + u8(0) + u16(0) + u16(0xFFFF);
  const std::string globals =
      record(biff::kWindow1, std::string(18, '\0')) + record(biff::kDateMode, u16(1)) +
      record(biff::kFormat, u16(164) + narrow("yyyy-mm-dd hh:mm")) +
      record(biff::kXf, u16(0) + u16(164) + std::string(16, '\0')) +
      record(biff::kSst, u32(3) + u32(3) + narrow("one") + u16(3) + u8(biff::kWide) + u16(0xD55C)) +
      record(biff::kContinue, u8(0) + "ab" + u16(2) + u8(biff::kRich | biff::kPhonetic) + u16(1) + u32(2) +
                                  "xy" + u32(0) + "ph");
  const std::string cells =
      record(biff::kRk, cellAt(0, 0) + u32(12U << 2U | 2U)) + record(biff::kNumber, cellAt(0, 1) + f64(0.5)) +
      record(biff::kMulRk, u16(0) + u16(2) + u16(0) + u32(3) + u16(0) + u32(2) + u16(3)) +
      record(biff::kLabelSst, cellAt(1, 0) + u32(1)) + record(biff::kLabel, cellAt(1, 1) + wide(u"1:2")) +
      record(biff::kRString, cellAt(1, 2) + narrow("rich") + u16(0)) +
      record(biff::kBoolErr, cellAt(1, 3) + u8(7) + u8(1)) + record(biff::kLabelSst, cellAt(2, 0) + u32(2)) +
      record(biff::kFormula, cellAt(2, 1) + noNumber + u16(0) + u32(0) + u16(0)) +
      record(biff::kString, narrow("result"));
  return workbook(globals, SheetBytes{cells}, SheetBytes{cells, 1}, SheetBytes{"", 0, 2});
}

bool write(const std::filesystem::path& folder, const std::vector<std::string>& inputs) {
  std::filesystem::create_directories(folder);
  int number = 0;
  for (const std::string& input : inputs) {
    std::ofstream file(folder / std::to_string(number++), std::ios::binary);
    file << input;
    if (!file) return false;
  }
  std::printf("%d inputs in %s\n", number, folder.c_str());
  return true;
}

}  // namespace

// Writes workbook streams and compound files as inputs of their fuzz targets into two folders below one.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: vireon_fuzz_workbook_corpus FOLDER\n", stderr);
    return 2;
  }
  const std::filesystem::path folder(argv[1]);
  const std::vector<std::string> streams{written({}), written(loggerGrid(3)), written(loggerGrid(40)),
                                         everyKind()};
  vireon::adapters::GsfCompoundFiles compound;
  std::vector<std::string> files;
  for (const std::string& stream : streams) files.push_back(compound.pack(stream).file);
  files.push_back(containerOf("Workbook", everyKind() + std::string(4096, '\0')).bytes());
  files.push_back(containerOf("Book", everyKind()).bytes());
  if (!write(folder / "workbook", streams) || !write(folder / "compound", files)) {
    std::fputs("cannot write the corpus\n", stderr);
    return 1;
  }
  return 0;
}
