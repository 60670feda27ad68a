#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/sheet.h"
#include "files/workbook_reader.h"

namespace vireon::files {

// A cell's row, column and format as its record has them.
struct CellPlace {
  int row = 0;
  int column = 0;
  NumberKind numberKind = NumberKind::kPlain;
};

// Collects a sheet's cells. Those of further columns are dropped; of several at one place the last counts.
class SheetBuilder {
 public:
  SheetBuilder(int columns, DateSystem dates);

  bool takes(const CellPlace& place) const { return place.column < sheet_.columns_; }

  void setNumber(const CellPlace& place, double number);
  void setBoolean(const CellPlace& place, bool value);
  void setError(const CellPlace& place, std::uint8_t code);
  // UTF-8. False where the texts are too many.
  bool setText(const CellPlace& place, std::string_view text);
  // The text of this number in the workbook's table.
  void setSharedText(const CellPlace& place, std::uint32_t number);

  // Fetches the shared texts from their table, the record at `table` of the stream, and hands the sheet over.
  WorkbookReadResult finish(std::string_view stream, std::optional<std::size_t> table);

  int rows() const { return sheet_.rows(); }

 private:
  struct Use {
    std::uint32_t text;
    std::uint32_t cell;
  };

  Sheet::Cell& cell(const CellPlace& place, CellKind kind);
  std::vector<Use> sharedUses() const;
  WorkbookReadError fetch(std::string_view stream, std::size_t table, const std::vector<Use>& uses);
  std::size_t textBytes() const;

  Sheet sheet_;
};

}  // namespace vireon::files
