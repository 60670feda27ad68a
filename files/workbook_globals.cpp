#include "files/workbook_globals.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "files/number_formats.h"
#include "files/record_reader.h"
#include "files/text_reader.h"

namespace vireon::files {
namespace {

constexpr std::size_t kMostListed = 65536;  // sheets and formats that 16 bits can name

bool isOldStart(const RecordReader& start) {
  const std::uint16_t record = start.record();
  if (record == biff::kBof2 || record == biff::kBof3 || record == biff::kBof4) return true;
  return record == biff::kBof && start.content().size() >= 2 && u16At(start.content(), 0) < biff::kVersion8;
}

class GlobalsReader {
 public:
  explicit GlobalsReader(std::string_view stream) : records_(stream) {}

  WorkbookGlobals read() {
    globals_.error = readStart();
    if (globals_.error == WorkbookReadError::kNone) globals_.error = readRecords();
    if (globals_.error == WorkbookReadError::kNone) globals_.error = chooseSheet();
    for (const std::uint16_t format : cellFormats_) globals_.numberKinds.push_back(numberKind(format));
    return std::move(globals_);
  }

 private:
  struct SheetEntry {
    std::uint32_t position;
    bool readable;  // a worksheet that is not hidden
  };

  WorkbookReadError readStart() {
    if (!records_.next()) return WorkbookReadError::kMalformed;
    if (isOldStart(records_)) return WorkbookReadError::kOldWorkbook;
    const std::string_view content = records_.content();
    const bool workbook = records_.record() == biff::kBof && content.size() >= 4 &&
                          u16At(content, 0) == biff::kVersion8 && u16At(content, 2) == biff::kGlobals;
    return workbook ? WorkbookReadError::kNone : WorkbookReadError::kMalformed;
  }

  WorkbookReadError readRecords() {
    while (records_.next()) {
      if (records_.record() == biff::kEof) return WorkbookReadError::kNone;
      if (records_.record() == biff::kFilePass) return WorkbookReadError::kEncrypted;
      if (!readRecord(records_.content())) return WorkbookReadError::kMalformed;
    }
    return WorkbookReadError::kMalformed;
  }

  // False where the record is too short.
  bool readRecord(std::string_view content) {
    switch (records_.record()) {
      case biff::kWindow1:
        if (content.size() < 12) return false;
        activeSheet_ = u16At(content, 10);
        return true;
      case biff::kDateMode:
        if (content.size() < 2) return false;
        globals_.dates = u16At(content, 0) == 1 ? DateSystem::k1904 : DateSystem::k1900;
        return true;
      case biff::kBoundSheet:
        if (content.size() < 6) return false;
        if (sheets_.size() < kMostListed) {
          sheets_.push_back({u32At(content, 0), (content[4] & 3) == 0 && content[5] == 0});
        }
        return true;
      case biff::kXf:
        if (content.size() < 4) return false;
        if (cellFormats_.size() < kMostListed) cellFormats_.push_back(u16At(content, 2));
        return true;
      case biff::kFormat:
        return readFormat(content);
      case biff::kSst:
        if (!globals_.sharedTexts) globals_.sharedTexts = records_.position();
        return true;
      default:
        return true;
    }
  }

  bool readFormat(std::string_view content) {
    std::string code;
    if (content.size() < 2 || !TextReader(records_, 2).text(&code)) return false;
    ownFormats_[u16At(content, 0)] = numberKindOf(code);
    return true;
  }

  NumberKind numberKind(std::uint16_t format) const {
    const auto own = ownFormats_.find(format);
    return own == ownFormats_.end() ? builtInNumberKind(format) : own->second;
  }

  // The sheet that is shown when the workbook is opened, else the first that can be read.
  WorkbookReadError chooseSheet() {
    const SheetEntry* chosen = nullptr;
    for (const SheetEntry& sheet : sheets_) {
      if (sheet.readable && chosen == nullptr) chosen = &sheet;
    }
    if (chosen == nullptr) return WorkbookReadError::kNoSheet;
    if (activeSheet_ < sheets_.size() && sheets_[activeSheet_].readable) chosen = &sheets_[activeSheet_];
    globals_.sheet = chosen->position;
    return WorkbookReadError::kNone;
  }

  RecordReader records_;
  WorkbookGlobals globals_;
  std::size_t activeSheet_ = 0;
  std::vector<SheetEntry> sheets_;
  std::vector<std::uint16_t> cellFormats_;
  std::map<std::uint16_t, NumberKind> ownFormats_;
};

}  // namespace

WorkbookGlobals readWorkbookGlobals(std::string_view stream) {
  return GlobalsReader(stream).read();
}

}  // namespace vireon::files
