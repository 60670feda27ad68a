#include "files/workbook_globals.h"

#include <gtest/gtest.h>

#include <string>

#include "files/cell_text.h"
#include "tests/files/workbook_bytes.h"

namespace vireon::tests {
namespace {

namespace biff = files::biff;
using files::readWorkbookStream;
using files::WorkbookReadError;

std::string one(double value, unsigned format = 0) {
  return record(biff::kNumber, cellAt(0, 0, format) + f64(value));
}

// Cell A1, or "error".
std::string a1(const std::string& stream) {
  const auto result = readWorkbookStream(stream, 1);
  if (result.error != WorkbookReadError::kNone) return "error";
  return files::plainText(result.sheet.value(0, 0), result.sheet.dates());
}

WorkbookReadError errorOf(const std::string& stream) {
  return readWorkbookStream(stream, 1).error;
}

// The window's record, whose sixth field is the sheet shown.
std::string shown(unsigned sheet) {
  return record(biff::kWindow1,
                u16(0) + u16(0) + u16(0) + u16(0) + u16(0) + u16(sheet) + u16(0) + u16(1) + u16(0));
}

std::string format(unsigned number, const std::string& code) {
  return record(biff::kFormat, u16(number) + narrow(code));
}

std::string xf(unsigned formatNumber) {
  return record(biff::kXf, u16(0) + u16(formatNumber) + std::string(16, '\0'));
}

TEST(WorkbookGlobals, SheetShownIsRead) {
  for (unsigned sheet = 0; sheet < 3; ++sheet) {
    EXPECT_EQ(a1(workbook(shown(sheet), SheetBytes{one(0)}, SheetBytes{one(1)}, SheetBytes{one(2)})),
              std::to_string(sheet));
  }
}

TEST(WorkbookGlobals, FirstVisibleWorksheetIsReadWhereThatIsNone) {
  EXPECT_EQ(a1(workbook("", SheetBytes{one(0)}, SheetBytes{one(1)})), "0");
  EXPECT_EQ(a1(workbook(shown(9), SheetBytes{one(0)}, SheetBytes{one(1)})), "0");
  EXPECT_EQ(a1(workbook(shown(0), SheetBytes{one(0), 1}, SheetBytes{one(1), 2}, SheetBytes{one(2)})), "2");
  EXPECT_EQ(a1(workbook(shown(1), SheetBytes{one(0)}, SheetBytes{"", 0, 2})), "0");
}

TEST(WorkbookGlobals, WorkbookWithoutAWorksheetThatShows) {
  EXPECT_EQ(errorOf(workbook("", SheetBytes{"", 0, 2}, SheetBytes{one(0), 1})), WorkbookReadError::kNoSheet);
  EXPECT_EQ(errorOf(begin(biff::kGlobals) + end()), WorkbookReadError::kNoSheet);
}

TEST(WorkbookGlobals, OlderWorkbooks) {
  EXPECT_EQ(errorOf(begin(biff::kGlobals, 0x0500) + end()), WorkbookReadError::kOldWorkbook);
  for (const unsigned start : {biff::kBof2, biff::kBof3, biff::kBof4}) {
    EXPECT_EQ(errorOf(record(start, u16(0) + u16(0x0010))), WorkbookReadError::kOldWorkbook);
  }
}

TEST(WorkbookGlobals, ProtectedWorkbook) {
  EXPECT_EQ(errorOf(oneSheet(one(1), record(biff::kFilePass, u16(1)))), WorkbookReadError::kEncrypted);
}

TEST(WorkbookGlobals, StreamThatBeginsOtherwiseIsNoWorkbook) {
  EXPECT_EQ(errorOf(""), WorkbookReadError::kMalformed);
  EXPECT_EQ(errorOf("R/No\tTime\tReading\tRemarks\r\n"), WorkbookReadError::kMalformed);
  EXPECT_EQ(errorOf(begin(biff::kWorksheet) + one(1) + end()), WorkbookReadError::kMalformed);
  EXPECT_EQ(errorOf(record(biff::kBof, "")), WorkbookReadError::kMalformed);
  EXPECT_EQ(errorOf(record(biff::kEof, "")), WorkbookReadError::kMalformed);
}

TEST(WorkbookGlobals, SheetAtAWrongPlaceIsRefused) {
  const std::string list = record(biff::kBoundSheet, u32(0xFFFFFFF0) + u16(0) + u8(1) + u8(0) + "S");
  EXPECT_EQ(errorOf(begin(biff::kGlobals) + list + end()), WorkbookReadError::kMalformed);
  const std::string itself = record(biff::kBoundSheet, u32(0) + u16(0) + u8(1) + u8(0) + "S");
  EXPECT_EQ(errorOf(begin(biff::kGlobals) + itself + end()), WorkbookReadError::kMalformed);
}

TEST(WorkbookGlobals, RecordTooShortForItsKindIsRefused) {
  for (const auto& [number, length] : {std::pair<unsigned, std::size_t>{biff::kWindow1, 12},
                                       {biff::kDateMode, 2},
                                       {biff::kBoundSheet, 6},
                                       {biff::kXf, 4},
                                       {biff::kFormat, 5}}) {
    for (std::size_t part = 0; part < length; ++part) {
      EXPECT_EQ(errorOf(oneSheet(one(1), record(number, std::string(part, '\0')))),
                WorkbookReadError::kMalformed)
          << number << " of " << part;
    }
  }
}

TEST(WorkbookGlobals, CellsFormatTellsADate) {
  EXPECT_EQ(a1(oneSheet(one(45000, 1), xf(0) + xf(14))), "2023-03-15");
  EXPECT_EQ(a1(oneSheet(one(45000, 0), xf(0) + xf(14))), "45000");
  EXPECT_EQ(a1(oneSheet(one(0.5, 0), xf(21))), "12:00:00");
  EXPECT_EQ(a1(oneSheet(one(45000.5, 0), xf(22))), "2023-03-15 12:00:00");
  EXPECT_EQ(a1(oneSheet(one(45000, 2), xf(0) + xf(14))), "45000");  // no such cell format
}

TEST(WorkbookGlobals, WorkbooksOwnFormatsTellToo) {
  EXPECT_EQ(a1(oneSheet(one(45000), format(164, "yyyy/mm/dd") + xf(164))), "2023-03-15");
  EXPECT_EQ(a1(oneSheet(one(45000), xf(164) + format(164, "yyyy/mm/dd"))), "2023-03-15");
  EXPECT_EQ(a1(oneSheet(one(45000), format(14, "0.00") + xf(14))), "45000");
}

TEST(WorkbookGlobals, DatesOf1904) {
  EXPECT_EQ(a1(oneSheet(one(43538), record(biff::kDateMode, u16(1)) + xf(14))), "2023-03-15");
  EXPECT_EQ(a1(oneSheet(one(45000), record(biff::kDateMode, u16(0)) + xf(14))), "2023-03-15");
}

TEST(WorkbookGlobals, FirstOfTwoTablesOfTextsCounts) {
  const std::string cell = record(biff::kLabelSst, cellAt(0, 0) + u32(0));
  EXPECT_EQ(a1(oneSheet(cell, table(1, narrow("first")) + table(1, narrow("second")))), "first");
}

}  // namespace
}  // namespace vireon::tests
