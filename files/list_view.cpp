#include "files/list_view.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

namespace vireon::files {

bool isEmptyList(const form::Grid& list) {
  return list.rows() < 2 || list.text(0, 0).empty() || list.text(1, 0).empty();
}

void fillList(form::Grid& list, std::vector<ListRow> rows) {
  const int count = static_cast<int>(rows.size());
  // First what may fail, while the list is whole.
  list.setRows(std::max(list.rows(), count + 1));
  list.clear();
  const int columns = std::min(list.columns(), kListColumns);
  for (int row = 0; row < count; ++row) {
    for (int column = 0; column < columns; ++column) {
      list.setText(row, column,
                   std::move(rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]));
    }
  }
  if (list.rows() > 1) {
    list.setTopRow(1);
  }
}

}  // namespace vireon::files
