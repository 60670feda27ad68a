#pragma once

#include <string_view>

#include "form/grid.h"

namespace vireon::protocol {

// The list of records in grdLog: records from row 1 on, an end mark in the column of their times.
inline constexpr int kRecordColumn = 0;
inline constexpr int kTimeColumn = 1;
inline constexpr int kReadingColumn = 2;
inline constexpr int kRemarkColumn = 3;
inline constexpr int kListRows = 13;      // of an empty list, the header row included
inline constexpr int kLastFixedRow = 10;  // records in later rows scroll the list

// The mark that a dump and the status reply write, and the one of the poll.
inline constexpr std::string_view kEndOfData = "--EOD---";
inline constexpr std::string_view kEndOfPoll = "--EOD--";

// Grows a list that has fewer than kListRows rows or fewer than `row` + 3.
void makeRoom(form::Grid& list, int row);

// Moves the list up by a row, as far as it goes, where a record was written below kLastFixedRow, and marks
// the record as the newest, which the user is to see. The list has the row.
void followRecord(form::Grid& list, int row);

// Writes an end mark, unless the row holds a record.
void markEnd(form::Grid& list, int row, std::string_view mark);

}  // namespace vireon::protocol
