#include "files/sheet.h"

#include <bit>
#include <string_view>

namespace vireon::files {
namespace {

std::string_view errorName(std::uint64_t code) {
  switch (code) {
    case 0x00:
      return "#NULL!";
    case 0x07:
      return "#DIV/0!";
    case 0x0F:
      return "#VALUE!";
    case 0x17:
      return "#REF!";
    case 0x1D:
      return "#NAME?";
    case 0x24:
      return "#NUM!";
    default:
      return "#N/A";
  }
}

}  // namespace

CellValue Sheet::value(int row, int column) const {
  if (row < 0 || row >= rows() || column < 0 || column >= columns_) return {};
  const Cell& cell = cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                            static_cast<std::size_t>(column)];
  CellValue value;
  value.kind = cell.kind;
  value.numberKind = cell.numberKind;
  if (cell.kind == CellKind::kText) {
    value.text = std::string_view(texts_).substr(cell.bits, cell.length);
  } else if (cell.kind == CellKind::kNumber) {
    value.number = std::bit_cast<double>(cell.bits);
  } else if (cell.kind == CellKind::kBoolean) {
    value.boolean = cell.bits != 0;
  } else if (cell.kind == CellKind::kError) {
    value.text = errorName(cell.bits);
  }
  return value;
}

}  // namespace vireon::files
