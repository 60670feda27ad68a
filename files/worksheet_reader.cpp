#include "files/worksheet_reader.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "files/record_reader.h"
#include "files/text_reader.h"
#include "files/workbook.h"

namespace vireon::files {
namespace {

constexpr std::size_t kCellHeader = 6;  // row, column and format, 16 bits each
constexpr std::size_t kRkBytes = 6;     // of each cell of a kMulRk: format and number

// A formula's result that is no number, by its first byte; the value's byte is the third.
enum Result : std::uint8_t { kResultText = 0, kResultBoolean = 1, kResultError = 2 };
constexpr std::uint16_t kNoNumberMark = 0xFFFF;  // the last two of the result's eight bytes

// 30 bits of a number: whole, or the upper bits of a floating one; either may be in hundredths.
double rkNumber(std::uint32_t rk) {
  const double number = (rk & 2U) != 0 ? static_cast<double>(static_cast<std::int32_t>(rk) >> 2)
                                       : std::bit_cast<double>(std::uint64_t{rk & ~3U} << 32U);
  return (rk & 1U) != 0 ? number / 100 : number;
}

class WorksheetReader {
 public:
  WorksheetReader(std::string_view stream, const WorkbookGlobals& globals, SheetBuilder& builder,
                  const Progress& progress)
      : records_(stream, globals.sheet), globals_(globals), builder_(builder), progress_(progress) {}

  WorkbookReadError read() {
    if (!readStart()) return WorkbookReadError::kMalformed;
    int depth = 1;  // charts stand inside the sheet, with a kBof and a kEof of their own
    while (records_.next()) {
      if (records_.record() == biff::kBof) {
        ++depth;
      } else if (records_.record() == biff::kEof) {
        if (--depth == 0) return WorkbookReadError::kNone;
      } else if (depth == 1) {
        if (const auto error = readRecord(); error != WorkbookReadError::kNone) return error;
        if (!goesOn()) return WorkbookReadError::kCancelled;
      }
    }
    return WorkbookReadError::kMalformed;
  }

 private:
  bool readStart() {
    if (!records_.next() || records_.record() != biff::kBof || content().size() < 4) return false;
    return u16At(content(), 0) == biff::kVersion8 && u16At(content(), 2) == biff::kWorksheet;
  }

  bool goesOn() {
    if (builder_.rows() < told_ + kProgressRows) return true;
    told_ = builder_.rows();
    return !progress_ || progress_(told_);
  }

  WorkbookReadError readRecord() {
    switch (records_.record()) {
      case biff::kNumber:
        return readNumber();
      case biff::kRk:
        return readRk();
      case biff::kMulRk:
        return readMulRk();
      case biff::kLabelSst:
        return readSharedText();
      case biff::kLabel:
      case biff::kRString:
        return readText();
      case biff::kBoolErr:
        return readBooleanOrError();
      case biff::kFormula:
        return readFormula();
      case biff::kString:
        return readFormulaText();
      default:
        return WorkbookReadError::kNone;
    }
  }

  std::string_view content() const { return records_.content(); }

  NumberKind numberKind(std::size_t format) const {
    return format < globals_.numberKinds.size() ? globals_.numberKinds[format] : NumberKind::kPlain;
  }

  // None where the record has fewer bytes than its header and these; further columns are for the caller.
  std::optional<CellPlace> place(std::size_t bytes) const {
    if (content().size() < kCellHeader + bytes) return std::nullopt;
    return CellPlace{u16At(content(), 0), u16At(content(), 2), numberKind(u16At(content(), 4))};
  }

  WorkbookReadError readNumber() {
    const auto cell = place(8);
    if (!cell) return WorkbookReadError::kMalformed;
    if (builder_.takes(*cell)) builder_.setNumber(*cell, f64At(content(), kCellHeader));
    return WorkbookReadError::kNone;
  }

  WorkbookReadError readRk() {
    const auto cell = place(4);
    if (!cell) return WorkbookReadError::kMalformed;
    if (builder_.takes(*cell)) builder_.setNumber(*cell, rkNumber(u32At(content(), kCellHeader)));
    return WorkbookReadError::kNone;
  }

  // Row and first column, then the cells, then the last column, which their count tells too.
  WorkbookReadError readMulRk() {
    const auto first = place(6);
    if (!first) return WorkbookReadError::kMalformed;
    CellPlace cell = *first;
    for (std::size_t at = 4; at + kRkBytes + 2 <= content().size() && builder_.takes(cell); at += kRkBytes) {
      cell.numberKind = numberKind(u16At(content(), at));
      builder_.setNumber(cell, rkNumber(u32At(content(), at + 2)));
      ++cell.column;
    }
    return WorkbookReadError::kNone;
  }

  WorkbookReadError readSharedText() {
    const auto cell = place(4);
    if (!cell) return WorkbookReadError::kMalformed;
    if (builder_.takes(*cell)) builder_.setSharedText(*cell, u32At(content(), kCellHeader));
    return WorkbookReadError::kNone;
  }

  WorkbookReadError readText() {
    const auto cell = place(3);
    if (!cell) return WorkbookReadError::kMalformed;
    return readTextInto(*cell, kCellHeader);
  }

  WorkbookReadError readTextInto(const CellPlace& cell, std::size_t offset) {
    if (!builder_.takes(cell)) return WorkbookReadError::kNone;
    std::string text;
    if (!TextReader(records_, offset).text(&text)) return WorkbookReadError::kMalformed;
    return builder_.setText(cell, text) ? WorkbookReadError::kNone : WorkbookReadError::kTooLarge;
  }

  WorkbookReadError readBooleanOrError() {
    const auto cell = place(2);
    if (!cell) return WorkbookReadError::kMalformed;
    setBooleanOrError(*cell, static_cast<std::uint8_t>(content()[kCellHeader]),
                      content()[kCellHeader + 1] != 0);
    return WorkbookReadError::kNone;
  }

  void setBooleanOrError(const CellPlace& cell, std::uint8_t value, bool error) {
    if (!builder_.takes(cell)) return;
    if (error) {
      builder_.setError(cell, value);
    } else {
      builder_.setBoolean(cell, value != 0);
    }
  }

  WorkbookReadError readFormula() {
    const auto cell = place(8);
    if (!cell) return WorkbookReadError::kMalformed;
    formulaText_.reset();
    if (u16At(content(), kCellHeader + 6) != kNoNumberMark) return readNumber();
    const auto kind = static_cast<std::uint8_t>(content()[kCellHeader]);
    const auto value = static_cast<std::uint8_t>(content()[kCellHeader + 2]);
    if (kind == kResultText) {
      formulaText_ = cell;
    } else if (kind == kResultBoolean || kind == kResultError) {
      setBooleanOrError(*cell, value, kind == kResultError);
    } else if (builder_.takes(*cell)) {
      static_cast<void>(builder_.setText(*cell, {}));
    }
    return WorkbookReadError::kNone;
  }

  // The text of the last formula whose result is one.
  WorkbookReadError readFormulaText() {
    if (!formulaText_) return WorkbookReadError::kNone;
    const CellPlace cell = *formulaText_;
    formulaText_.reset();
    return readTextInto(cell, 0);
  }

  RecordReader records_;
  const WorkbookGlobals& globals_;
  SheetBuilder& builder_;
  const Progress& progress_;
  int told_ = 0;  // rows
  std::optional<CellPlace> formulaText_;
};

}  // namespace

WorkbookReadError readWorksheet(std::string_view stream, const WorkbookGlobals& globals,
                                SheetBuilder& builder, const Progress& progress) {
  return WorksheetReader(stream, globals, builder, progress).read();
}

}  // namespace vireon::files
