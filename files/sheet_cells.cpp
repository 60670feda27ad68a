#include "files/sheet_cells.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "files/utf16.h"

namespace vireon::files {
namespace {

// The value of decimal digits alone.
std::optional<std::uint32_t> digitsValue(std::string_view text) {
  std::uint32_t value = 0;
  for (const char digit : text) {
    if (digit < '0' || digit > '9') return std::nullopt;
    value = value * 10 + static_cast<std::uint32_t>(digit - '0');
  }
  return value;
}

std::optional<std::uint32_t> recordNumberOf(std::string_view text) {
  return text.size() == 5 ? digitsValue(text) : std::nullopt;
}

// Seconds since midnight of exactly "hh:mm:ss".
std::optional<std::uint32_t> secondsOf(std::string_view text) {
  if (text.size() != 8 || text[2] != ':' || text[5] != ':') return std::nullopt;
  const auto hours = digitsValue(text.substr(0, 2));
  const auto minutes = digitsValue(text.substr(3, 2));
  const auto seconds = digitsValue(text.substr(6, 2));
  if (!hours || !minutes || !seconds || *hours > 23 || *minutes > 59 || *seconds > 59) return std::nullopt;
  return (*hours * 60 + *minutes) * 60 + *seconds;
}

bool isTooLong(std::string_view text) {
  return text.size() > kLongestCellText && utf16Form(text).units > kLongestCellText;
}

}  // namespace

WorkbookWriteError SheetCells::take(const SheetText& sheet, const Progress& progress) {
  columns_ = sheet.columns;
  if (columns_ > kMostSheetColumns) return WorkbookWriteError::kTooManyColumns;
  std::size_t used = 0;  // cells up to the last row with a text
  for (int row = 0; row < sheet.rows; ++row) {
    if (const auto error = takeRow(sheet, row); error != WorkbookWriteError::kNone) return error;
    const auto start = cells_.end() - columns_;
    if (std::any_of(start, cells_.end(), [](std::uint32_t cell) { return cell != 0; })) {
      if (row >= kMostSheetRows) return WorkbookWriteError::kTooManyRows;
      used = cells_.size();
    } else if (row >= kMostSheetRows) {
      cells_.erase(start, cells_.end());
    }
    if ((row + 1) % kProgressRows == 0 && progress && !progress(row + 1)) {
      return WorkbookWriteError::kCancelled;
    }
  }
  cells_.resize(used);
  return WorkbookWriteError::kNone;
}

WorkbookWriteError SheetCells::takeRow(const SheetText& sheet, int row) {
  for (int column = 0; column < columns_; ++column) {
    const std::string_view text = sheet.text(row, column);
    if (isTooLong(text)) return WorkbookWriteError::kTextTooLong;
    cells_.push_back(cell(text, column));
  }
  return texts_.bytes() > kLargestWorkbook ? WorkbookWriteError::kTooLarge : WorkbookWriteError::kNone;
}

std::uint32_t SheetCells::cell(std::string_view text, int column) {
  const auto coded = [](CellContent content, std::uint32_t value) {
    return static_cast<std::uint32_t>(content) << kValueBits | value;
  };
  if (text.empty()) return coded(CellContent::kNothing, 0);
  ++filled_;
  if (column == 0) {
    if (const auto number = recordNumberOf(text)) return coded(CellContent::kRecordNumber, *number);
  }
  if (column == 1) {
    if (const auto seconds = secondsOf(text)) return coded(CellContent::kTime, *seconds);
  }
  ++uses_;
  return coded(CellContent::kText, texts_.numberOf(text));
}

}  // namespace vireon::files
