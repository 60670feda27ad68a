#include "files/import_rows.h"

#include <gtest/gtest.h>

#include <string>

#include "files/workbook.h"
#include "tests/files/grid_text.h"
#include "tests/files/workbook_bytes.h"

namespace vireon::tests {
namespace {

namespace biff = files::biff;
using files::importRows;
using files::WorkbookReadError;

GridText roundTrip(const GridText& grid) {
  return importRows(files::writeWorkbookStream(sheetOf(grid)).stream).rows;
}

std::string numberAt(unsigned row, unsigned column, double value) {
  return record(biff::kNumber, cellAt(row, column) + f64(value));
}

std::string textAt(unsigned row, unsigned column, std::string_view text) {
  return record(biff::kLabel, cellAt(row, column) + narrow(text));
}

TEST(ImportRows, RecordNumberOf12Reads00012) {
  const auto result = importRows(oneSheet(numberAt(0, 0, 12) + numberAt(0, 1, 0.5) + numberAt(0, 2, 1.5)));
  EXPECT_EQ(result.rows, (GridText{{"00012", "12:00:00", "1.5", ""}}));
}

TEST(ImportRows, EachColumnHasItsFormat) {
  const auto result = importRows(
      oneSheet(numberAt(0, 0, 7.5) + textAt(0, 1, "1:2:3") + numberAt(0, 2, 7.5) + textAt(0, 3, "1:2:3")));
  EXPECT_EQ(result.rows, (GridText{{"00008", "01:02:03", "7.5", "1:2:3"}}));
}

TEST(ImportRows, StopsAtTheFirstRowWhoseColumnAIsEmpty) {
  const std::string rows = textAt(0, 0, "a") + textAt(1, 0, "b") + textAt(2, 1, "no A") + textAt(3, 0, "d");
  EXPECT_EQ(importRows(oneSheet(rows)).rows, (GridText{{"a", "", "", ""}, {"b", "", "", ""}}));
  EXPECT_EQ(importRows(oneSheet(textAt(0, 0, "a") + textAt(1, 0, "") + textAt(2, 0, "c"))).rows.size(), 1U);
  EXPECT_TRUE(importRows(oneSheet(textAt(1, 0, "b"))).rows.empty());
  EXPECT_TRUE(importRows(oneSheet("")).rows.empty());
}

TEST(ImportRows, ReadsToTheLastRowThatASheetHas) {
  std::string rows;
  for (unsigned row = 0; row < 65536; ++row) rows += record(biff::kRk, cellAt(row, 0) + u32(row << 2U | 2U));
  const auto result = importRows(oneSheet(rows));
  ASSERT_EQ(result.rows.size(), 65536U);
  EXPECT_EQ(result.rows.back()[0], "65535");
}

TEST(ImportRows, DownloadComesBackAsItWas) {
  const GridText grid = loggerGrid(1000);
  EXPECT_EQ(roundTrip(grid), grid);
}

TEST(ImportRows, EveryOddTextComesBackAsItWas) {
  GridText grid{kHeader};
  for (const char* text : {"12",
                           "00012",
                           "123456",
                           "-0001",
                           "1.5",
                           "+0001",
                           " 0001",
                           "0x012",
                           "True",
                           "#N/A",
                           "=1+1",
                           "'00012",
                           "--EOD---",
                           "한글",
                           "\xC2\xB5"
                           "A",
                           "\xE2\x84\xA6",
                           "\xF0\x9F\x98\x80",
                           " blanks ",
                           "tab\t",
                           "a\r\nb",
                           "1E+05",
                           "99999",
                           "00000",
                           "25:00:00",
                           "\x01\x02"}) {
    grid.push_back({text, text, text, text});
  }
  grid.push_back({"x", "23:59:59", "23:59:59", "23:59:59"});
  grid.push_back({"12:34:56", "00:00:00", "00000", "00012"});
  EXPECT_EQ(roundTrip(grid), grid);
}

TEST(ImportRows, TimeOfAnotherFormComesBackInTwoDigits) {
  EXPECT_EQ(roundTrip({{"a", "1:2:3", "1:2:3", ""}}), (GridText{{"a", "01:02:03", "1:2:3", ""}}));
}

TEST(ImportRows, LongestTextsComeBack) {
  const std::string narrowText(files::kLongestCellText, 'x');
  std::string wideText;
  for (std::size_t unit = 0; unit < files::kLongestCellText; ++unit) wideText += "한";
  std::string pairs = "a";
  for (std::size_t unit = 1; unit + 1 < files::kLongestCellText; unit += 2) pairs += "\xF0\x9F\x98\x80";
  const GridText grid{{narrowText, wideText, pairs, narrowText + ""}, {"b", pairs, wideText, ""}};
  EXPECT_EQ(roundTrip(grid), grid);
}

// Texts of growing length, so that the table's records end at every place of a text.
TEST(ImportRows, TextsAreSplitAtEveryPlaceOfARecord) {
  for (const std::string letter : {"x", "한", "\xF0\x9F\x98\x80"}) {
    GridText grid;
    std::string text;
    for (int length = 1; length < 600; ++length) {
      text += letter;
      grid.push_back({text, text + "y", "", text + "한"});
    }
    EXPECT_EQ(roundTrip(grid), grid);
  }
}

TEST(ImportRows, FileOfManySmallReferencesToALargeTextIsRefused) {
  const std::string texts = table(1, narrow(std::string(8000, 'x')));
  std::string rows;
  for (unsigned row = 0; row < 65536; ++row) {
    for (unsigned column = 0; column < 4; ++column) {
      rows += record(biff::kLabelSst, cellAt(row, column) + u32(0));
    }
  }
  EXPECT_EQ(importRows(oneSheet(rows, texts)).error, WorkbookReadError::kTooLarge);
}

TEST(ImportRows, TextsMayHaveSoManyBytesAndNoMore) {
  const std::string large(8192, 'x');  // with 1024 of them the most
  std::string rows;
  for (unsigned row = 0; row < 1024; ++row) {
    const std::string part = u16(8192) + u8(0) + large.substr(0, 8000);
    rows += record(biff::kLabel, cellAt(row, 0) + part) + record(biff::kContinue, u8(0) + large.substr(8000));
  }
  EXPECT_EQ(importRows(oneSheet(rows)).rows.size(), 1024U);
  EXPECT_EQ(importRows(oneSheet(rows + textAt(1024, 0, "x"))).error, WorkbookReadError::kTooLarge);
  // A text that another one replaces was read too.
  EXPECT_EQ(importRows(oneSheet(rows + textAt(0, 0, "x"))).error, WorkbookReadError::kTooLarge);
}

TEST(ImportRows, NumbersThatAreLongAsTextsAreBoundedToo) {
  std::string rows;
  for (unsigned row = 0; row < 65536; ++row) rows += numberAt(row, 0, 1e308);
  EXPECT_EQ(importRows(oneSheet(rows)).error, WorkbookReadError::kTooLarge);
}

TEST(ImportRows, CancelledImportGivesNoRows) {
  const auto result =
      importRows(files::writeWorkbookStream(sheetOf(loggerGrid(1000))).stream, [](int) { return false; });
  EXPECT_EQ(result.error, WorkbookReadError::kCancelled);
  EXPECT_TRUE(result.rows.empty());
}

}  // namespace
}  // namespace vireon::tests
