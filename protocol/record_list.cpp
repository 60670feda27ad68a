#include "protocol/record_list.h"

#include <algorithm>
#include <string>

#include "protocol/reply_text.h"

namespace vireon::protocol {
namespace {

bool holdsRecord(const form::Grid& list, int row) {
  const auto cell = [&](int column) { return trimmed(list.text(row, column)); };
  return !cell(kRecordColumn).empty() || !cell(kReadingColumn).empty() ||
         (!cell(kTimeColumn).empty() && !cell(kTimeColumn).starts_with(kEndOfPoll));
}

}  // namespace

void makeRoom(form::Grid& list, int row) {
  list.setRows(std::max({list.rows(), kListRows, row + 3}));
}

void followRecord(form::Grid& list, int row) {
  if (row > kLastFixedRow) {
    list.setTopRow(std::min(list.topRow() + 1, list.rows() - 1));
  }
  list.setNewestRow(row);
}

void markEnd(form::Grid& list, int row, std::string_view mark) {
  makeRoom(list, row);
  if (!holdsRecord(list, row)) {
    list.setText(row, kTimeColumn, std::string(mark));
    list.setNewestRow(row);
  }
}

}  // namespace vireon::protocol
