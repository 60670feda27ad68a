#pragma once

#include <string>
#include <vector>

#include "files/import_rows.h"
#include "files/workbook_writer.h"

namespace vireon::tests {

using GridText = std::vector<files::ListRow>;

// A view of rows of four texts, which must outlive it.
inline files::SheetText sheetOf(const GridText& grid) {
  return {static_cast<int>(grid.size()), 4, [&grid](int row, int column) -> std::string_view {
            return grid[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
          }};
}

inline const files::ListRow kHeader{"R/No", "Time", "Reading", "Remarks"};

// A download of so many records, as the instrument lists one.
inline GridText loggerGrid(int records) {
  GridText grid{kHeader};
  for (int index = 0; index < records; ++index) {
    const std::string number = std::to_string(100000 + index % 100000).substr(1);
    const std::string minute = std::to_string(100 + index / 60 % 60).substr(1);
    const std::string second = std::to_string(100 + index % 60).substr(1);
    const std::string reading = "-" + std::to_string(1000 + index % 9000).insert(1, ".") + "mV";
    grid.push_back(
        {number, "12:" + minute + ":" + second, reading, index % 7 == 0 ? "Check!!" : "DCV or ACV"});
  }
  return grid;
}

}  // namespace vireon::tests
