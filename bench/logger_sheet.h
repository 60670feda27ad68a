#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "files/workbook_writer.h"

namespace vireon::bench {

// A download of so many records as the grid holds it, its readings all different.
class LoggerSheet {
 public:
  explicit LoggerSheet(int rows) : rows_(rows) {
    cells_ = {"R/No", "Time", "Reading", "Remarks"};
    for (int row = 1; row < rows; ++row) {
      char text[32];
      const auto add = [&](const char* format, auto... values) {
        std::snprintf(text, sizeof text, format, values...);
        cells_.emplace_back(text);
      };
      add("%05d", row);
      add("%02d:%02d:%02d", row / 3600 % 24, row / 60 % 60, row % 60);
      add("%d.%05dV", row % 7, row);
      cells_.emplace_back("DCV or ACV");
    }
  }

  int rows() const { return rows_; }
  files::SheetText view() const {
    return {rows_, 4, [this](int row, int column) -> std::string_view {
              return cells_[static_cast<std::size_t>(row) * 4 + static_cast<std::size_t>(column)];
            }};
  }

 private:
  int rows_;
  std::vector<std::string> cells_;
};

}  // namespace vireon::bench
