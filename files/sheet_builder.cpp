#include "files/sheet_builder.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

#include "files/text_reader.h"

namespace vireon::files {
namespace {

constexpr std::uint32_t kShared = 0xFFFFFFFF;  // the length of a text that is still in the table
constexpr std::uint8_t kNoNumber = 0x24;       // the code of "#NUM!"
constexpr std::size_t kTableHeader = 8;        // two counts before the table's first text

}  // namespace

SheetBuilder::SheetBuilder(int columns, DateSystem dates) {
  sheet_.columns_ = std::clamp(columns, 1, kMostReadColumns);
  sheet_.dates_ = dates;
}

void SheetBuilder::setNumber(const CellPlace& place, double number) {
  if (!std::isfinite(number)) {
    setError(place, kNoNumber);
    return;
  }
  cell(place, CellKind::kNumber).bits = std::bit_cast<std::uint64_t>(number);
}

void SheetBuilder::setBoolean(const CellPlace& place, bool value) {
  cell(place, CellKind::kBoolean).bits = value ? 1 : 0;
}

void SheetBuilder::setError(const CellPlace& place, std::uint8_t code) {
  cell(place, CellKind::kError).bits = code;
}

bool SheetBuilder::setText(const CellPlace& place, std::string_view text) {
  if (text.size() > kMostTextBytes - sheet_.texts_.size()) return false;
  Sheet::Cell& target = cell(place, CellKind::kText);
  target.bits = sheet_.texts_.size();
  target.length = static_cast<std::uint32_t>(text.size());
  sheet_.texts_ += text;
  return true;
}

void SheetBuilder::setSharedText(const CellPlace& place, std::uint32_t number) {
  Sheet::Cell& target = cell(place, CellKind::kText);
  target.bits = number;
  target.length = kShared;
}

WorkbookReadResult SheetBuilder::finish(std::string_view stream, std::optional<std::size_t> table) {
  const std::vector<Use> uses = sharedUses();
  if (!uses.empty()) {
    if (!table) return {{}, WorkbookReadError::kMalformed};
    const auto error = fetch(stream, *table, uses);
    if (error != WorkbookReadError::kNone) return {{}, error};
  }
  if (textBytes() > kMostTextBytes) return {{}, WorkbookReadError::kTooLarge};
  return {std::move(sheet_), WorkbookReadError::kNone};
}

Sheet::Cell& SheetBuilder::cell(const CellPlace& place, CellKind kind) {
  const auto columns = static_cast<std::size_t>(sheet_.columns_);
  const std::size_t start = static_cast<std::size_t>(place.row) * columns;
  if (sheet_.cells_.size() < start + columns) sheet_.cells_.resize(start + columns);
  Sheet::Cell& target = sheet_.cells_[start + static_cast<std::size_t>(place.column)];
  target = {kind, place.numberKind, 0, 0};
  return target;
}

std::vector<SheetBuilder::Use> SheetBuilder::sharedUses() const {
  const auto isShared = [](const Sheet::Cell& cell) {
    return cell.kind == CellKind::kText && cell.length == kShared;
  };
  std::vector<Use> uses;
  uses.reserve(static_cast<std::size_t>(std::count_if(sheet_.cells_.begin(), sheet_.cells_.end(), isShared)));
  for (std::size_t index = 0; index < sheet_.cells_.size(); ++index) {
    const Sheet::Cell& cell = sheet_.cells_[index];
    if (isShared(cell)) {
      uses.push_back({static_cast<std::uint32_t>(cell.bits), static_cast<std::uint32_t>(index)});
    }
  }
  std::sort(uses.begin(), uses.end(),
            [](const Use& left, const Use& right) { return left.text < right.text; });
  return uses;
}

// One walk over the table, which may be many times larger than what the cells use of it.
WorkbookReadError SheetBuilder::fetch(std::string_view stream, std::size_t table,
                                      const std::vector<Use>& uses) {
  RecordReader record(stream, table);
  record.next();  // where there is none, no text can be read either
  TextReader reader(record, kTableHeader);
  std::uint32_t next = 0;  // the number of the text that the reader stands at
  std::uint64_t place = 0;
  for (const Use& use : uses) {
    if (next <= use.text) {
      for (; next < use.text; ++next) {
        if (!reader.text(nullptr)) return WorkbookReadError::kMalformed;
      }
      ++next;
      place = sheet_.texts_.size();
      if (!reader.text(&sheet_.texts_)) return WorkbookReadError::kMalformed;
      if (sheet_.texts_.size() > kMostTextBytes) return WorkbookReadError::kTooLarge;
    }
    Sheet::Cell& cell = sheet_.cells_[use.cell];
    cell.bits = place;
    cell.length = static_cast<std::uint32_t>(sheet_.texts_.size() - place);
  }
  return WorkbookReadError::kNone;
}

std::size_t SheetBuilder::textBytes() const {
  std::size_t bytes = 0;
  for (const Sheet::Cell& cell : sheet_.cells_) bytes += cell.length;
  return bytes;
}

}  // namespace vireon::files
