#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>

#include "files/cell_text.h"
#include "files/sheet_builder.h"
#include "files/workbook_reader.h"
#include "tests/files/workbook_bytes.h"

namespace vireon::tests {
namespace {

namespace biff = files::biff;
using files::CellKind;
using files::readWorkbookStream;
using files::WorkbookReadError;
using files::WorkbookReadResult;

// Row 0 of a sheet with these records: columns A to D as texts, with '|' between.
std::string rowOf(std::string_view records, std::string_view globals = "") {
  const WorkbookReadResult result = readWorkbookStream(oneSheet(records, globals), 4);
  if (result.error == WorkbookReadError::kMalformed) return "malformed";
  if (result.error != WorkbookReadError::kNone) return "error";
  std::string row;
  for (int column = 0; column < 4; ++column) {
    if (column > 0) row += '|';
    row += files::plainText(result.sheet.value(0, column), result.sheet.dates());
  }
  return row;
}

CellKind kindOf(std::string_view records) {
  return readWorkbookStream(oneSheet(records), 4).sheet.value(0, 0).kind;
}

std::string number(unsigned column, double value, unsigned format = 0) {
  return record(biff::kNumber, cellAt(0, column, format) + f64(value));
}

std::string rk(std::uint32_t bits) {
  return record(biff::kRk, cellAt(0, 0) + u32(bits));
}

std::string shared(unsigned column, std::uint32_t text) {
  return record(biff::kLabelSst, cellAt(0, column) + u32(text));
}

// A formula whose result is marked as no number: its kind in the first byte, its value in the third.
std::string formula(unsigned kind, unsigned value) {
  const std::string result = u8(kind) + u8(0) + u8(value) + u8(0) + u16(0) + u16(0xFFFF);
  return record(biff::kFormula, cellAt(0, 0) + result + u16(0) + u32(0) + u16(0));
}

TEST(WorksheetReader, Numbers) {
  EXPECT_EQ(rowOf(number(0, 1.5) + number(2, -2)), "1.5||-2|");
}

TEST(WorksheetReader, NumberThatIsNoneReadsAsAnError) {
  EXPECT_EQ(rowOf(number(0, std::numeric_limits<double>::quiet_NaN())), "#NUM!|||");
  EXPECT_EQ(rowOf(number(0, std::numeric_limits<double>::infinity())), "#NUM!|||");
}

TEST(WorksheetReader, ShortNumbersInTheirFourForms) {
  EXPECT_EQ(rowOf(rk(12U << 2U | 2U)), "12|||");       // whole
  EXPECT_EQ(rowOf(rk(0xFFFFFFFEU)), "-1|||");          // whole, below zero
  EXPECT_EQ(rowOf(rk(1234U << 2U | 3U)), "12.34|||");  // whole, in hundredths
  EXPECT_EQ(rowOf(rk(0x3FF80000U)), "1.5|||");         // floating
  EXPECT_EQ(rowOf(rk(0x40590000U | 1U)), "1|||");      // floating, in hundredths: 100
  EXPECT_EQ(rowOf(rk(0x80000002U)), "-536870912|||");  // the least whole one
  EXPECT_EQ(rowOf(rk(0x7FFFFFFEU)), "536870911|||");   // the largest
}

TEST(WorksheetReader, SeveralShortNumbersOfARow) {
  const std::string numbers = u16(0) + u32(1U << 2U | 2U) +  // format and number of column B
                              u16(0) + u32(2U << 2U | 2U);   // of column C
  EXPECT_EQ(rowOf(record(biff::kMulRk, u16(0) + u16(1) + numbers + u16(2))), "|1|2|");
}

TEST(WorksheetReader, ShortNumbersBeyondTheColumnsReadAreDropped) {
  std::string numbers;
  for (unsigned column = 3; column < 256; ++column) numbers += u16(0) + u32(column << 2U | 2U);
  EXPECT_EQ(rowOf(record(biff::kMulRk, u16(0) + u16(3) + numbers + u16(255))), "|||3");
  EXPECT_EQ(rowOf(record(biff::kMulRk, u16(0) + u16(0xFFFF) + numbers + u16(255))), "|||");
}

TEST(WorksheetReader, CellsOfEveryKindBeyondTheColumnsReadAreDropped) {
  const std::string beyond = cellAt(0, 4);
  const std::string emptyText = u8(3) + std::string(5, '\0') + u16(0xFFFF);
  for (const std::string& cell :
       {record(biff::kNumber, beyond + f64(1)), record(biff::kRk, beyond + u32(2)),
        record(biff::kLabelSst, beyond + u32(9)), record(biff::kLabel, beyond + narrow("abc")),
        record(biff::kBoolErr, beyond + u8(1) + u8(0)), record(biff::kFormula, beyond + emptyText)}) {
    const WorkbookReadResult result = readWorkbookStream(oneSheet(cell), 4);
    EXPECT_EQ(result.error, WorkbookReadError::kNone);
    EXPECT_EQ(result.sheet.rows(), 0);
  }
}

TEST(WorksheetReader, SharedTexts) {
  const std::string texts = table(3, narrow("one") + wide(u"셋") + narrow(""));
  EXPECT_EQ(rowOf(shared(0, 1) + shared(1, 0) + shared(2, 1) + shared(3, 2), texts), "셋|one|셋|");
}

TEST(WorksheetReader, SharedTextThatTheTableLacksIsRefused) {
  EXPECT_EQ(rowOf(shared(0, 1), table(2, narrow("one"))), "malformed");
  EXPECT_EQ(rowOf(shared(0, 0xFFFFFFFF), table(2, narrow("one"))), "malformed");
  EXPECT_EQ(rowOf(shared(0, 0)), "malformed");
}

TEST(WorksheetReader, SharedTextsOfMoreThanEightMebibytesAreRefused) {
  const std::string text = narrow(std::string(8000, 'x'));
  const auto errorOf = [&](std::uint32_t count) {
    std::string cells;
    std::string texts = record(biff::kSst, u32(count) + u32(count) + text);
    for (std::uint32_t index = 0; index < count; ++index) {
      cells += record(biff::kLabelSst, cellAt(index, 0) + u32(index));
      if (index > 0) texts += record(biff::kContinue, text);
    }
    return readWorkbookStream(oneSheet(cells, texts), 4).error;
  };
  EXPECT_EQ(errorOf(1048), WorkbookReadError::kNone);
  EXPECT_EQ(errorOf(1049), WorkbookReadError::kTooLarge);
}

TEST(WorksheetReader, TableAtAPlaceThatHasNoRecordIsRefused) {
  files::SheetBuilder sheet(1, files::DateSystem::k1900);
  sheet.setSharedText({0, 0}, 0);
  EXPECT_EQ(sheet.finish("\xFC", 0).error, WorkbookReadError::kMalformed);
}

TEST(WorksheetReader, TableThatNoCellNeedsIsNotRead) {
  EXPECT_EQ(rowOf(number(0, 1), record(biff::kSst, "")), "1|||");
}

TEST(WorksheetReader, TextsInTheirCells) {
  EXPECT_EQ(rowOf(record(biff::kLabel, cellAt(0, 0) + narrow("abc"))), "abc|||");
  EXPECT_EQ(rowOf(record(biff::kLabel, cellAt(0, 1) + wide(u"한"))), "|한||");
  EXPECT_EQ(rowOf(record(biff::kRString, cellAt(0, 0) + narrow("abc") + u16(1) + u16(0) + u16(5))), "abc|||");
}

TEST(WorksheetReader, TextInACellReadsOnInTheNextRecord) {
  EXPECT_EQ(rowOf(record(biff::kLabel, cellAt(0, 0) + u16(3) + u8(0) + "a") +
                  record(biff::kContinue, u8(biff::kWide) + u16('b') + u16('c')) + number(1, 2)),
            "abc|2||");
}

TEST(WorksheetReader, BooleansAndErrors) {
  const auto boolErr = [](unsigned value, unsigned error) {
    return record(biff::kBoolErr, cellAt(0, 0) + u8(value) + u8(error));
  };
  EXPECT_EQ(rowOf(boolErr(1, 0)), "True|||");
  EXPECT_EQ(rowOf(boolErr(0, 0)), "False|||");
  EXPECT_EQ(rowOf(boolErr(0x00, 1)), "#NULL!|||");
  EXPECT_EQ(rowOf(boolErr(0x07, 1)), "#DIV/0!|||");
  EXPECT_EQ(rowOf(boolErr(0x0F, 1)), "#VALUE!|||");
  EXPECT_EQ(rowOf(boolErr(0x17, 1)), "#REF!|||");
  EXPECT_EQ(rowOf(boolErr(0x1D, 1)), "#NAME?|||");
  EXPECT_EQ(rowOf(boolErr(0x24, 1)), "#NUM!|||");
  EXPECT_EQ(rowOf(boolErr(0x2A, 1)), "#N/A|||");
}

TEST(WorksheetReader, FormulasHaveTheirLastResults) {
  EXPECT_EQ(rowOf(record(biff::kFormula, cellAt(0, 0) + f64(2.5) + u16(0) + u32(0) + u16(0))), "2.5|||");
  EXPECT_EQ(rowOf(formula(1, 1)), "True|||");
  EXPECT_EQ(rowOf(formula(1, 0)), "False|||");
  EXPECT_EQ(rowOf(formula(2, 0x07)), "#DIV/0!|||");
  EXPECT_EQ(rowOf(formula(3, 0)), "|||");
  EXPECT_EQ(kindOf(formula(3, 0)), CellKind::kText);
  EXPECT_EQ(rowOf(formula(0, 0) + record(biff::kString, wide(u"결과"))), "결과|||");
}

TEST(WorksheetReader, RecordsMayStandBetweenAFormulaAndItsText) {
  constexpr unsigned kSharedFormula = 0x04BC;
  EXPECT_EQ(rowOf(formula(0, 0) + record(kSharedFormula, "12345678") + record(biff::kString, narrow("x"))),
            "x|||");
}

TEST(WorksheetReader, TextOfNoFormulaIsIgnored) {
  EXPECT_EQ(rowOf(number(0, 1) + record(biff::kString, narrow("x"))), "1|||");
  EXPECT_EQ(rowOf(formula(0, 0) + record(biff::kString, narrow("x")) + record(biff::kString, narrow("y"))),
            "x|||");
  EXPECT_EQ(rowOf(formula(0, 0) + formula(1, 1) + record(biff::kString, narrow("x"))), "True|||");
}

TEST(WorksheetReader, EmptyCellsWithAFormatAreEmpty) {
  constexpr unsigned kBlank = 0x0201;
  constexpr unsigned kMulBlank = 0x00BE;
  EXPECT_EQ(
      rowOf(record(kBlank, cellAt(0, 0)) + record(kMulBlank, u16(0) + u16(1) + u16(0) + u16(0) + u16(2))),
      "|||");
  EXPECT_EQ(readWorkbookStream(oneSheet(record(kBlank, cellAt(7, 0))), 4).sheet.rows(), 0);
}

TEST(WorksheetReader, CellTooShortForItsKindIsRefused) {
  struct {
    unsigned record;
    std::string content;
  } const cells[] = {{biff::kNumber, cellAt(0, 0) + f64(1)},
                     {biff::kRk, cellAt(0, 0) + u32(2)},
                     {biff::kMulRk, u16(0) + u16(0) + u16(0) + u32(2) + u16(0)},
                     {biff::kLabelSst, cellAt(0, 0) + u32(0)},
                     {biff::kLabel, cellAt(0, 0) + narrow("ab")},
                     {biff::kRString, cellAt(0, 0) + narrow("ab")},
                     {biff::kBoolErr, cellAt(0, 0) + u8(1) + u8(0)},
                     {biff::kFormula, cellAt(0, 0) + f64(1)}};
  const std::string texts = table(1, narrow("x"));
  for (const auto& cell : cells) {
    EXPECT_NE(rowOf(record(cell.record, cell.content), texts), "malformed") << cell.record;
    for (std::size_t length = 0; length < cell.content.size(); ++length) {
      EXPECT_EQ(rowOf(record(cell.record, cell.content.substr(0, length)), texts), "malformed")
          << cell.record << " of " << length;
    }
  }
}

TEST(WorksheetReader, FormulasTextThatEndsTooSoonIsRefused) {
  EXPECT_EQ(rowOf(formula(0, 0) + record(biff::kString, u16(2) + u8(0) + "a")), "malformed");
}

TEST(WorksheetReader, LastOfSeveralCellsAtOnePlaceCounts) {
  EXPECT_EQ(rowOf(number(0, 1) + record(biff::kLabel, cellAt(0, 0) + narrow("abc"))), "abc|||");
  EXPECT_EQ(rowOf(shared(0, 0) + number(0, 1), table(1, narrow("x"))), "1|||");
}

TEST(WorksheetReader, CellsOfAChartInsideTheSheetAreNotItsOwn) {
  EXPECT_EQ(rowOf(number(0, 1) + begin(0x0020) + number(0, 9) + number(1, 9) + end() + number(2, 3)),
            "1||3|");
}

TEST(WorksheetReader, CellsStandWhereTheyAreInWhateverOrder) {
  const std::string records = record(biff::kNumber, cellAt(65535, 3) + f64(4)) +
                              record(biff::kNumber, cellAt(2, 0) + f64(2)) +
                              record(biff::kNumber, cellAt(0, 4) + f64(5));
  const WorkbookReadResult result = readWorkbookStream(oneSheet(records), 4);
  EXPECT_EQ(result.sheet.rows(), 65536);
  EXPECT_EQ(result.sheet.value(65535, 3).number, 4);
  EXPECT_EQ(result.sheet.value(2, 0).number, 2);
  for (const auto& [row, column] : {std::pair{0, 4}, {0, 0}, {65535, 0}, {65536, 0}, {-1, 0}, {0, -1}}) {
    EXPECT_EQ(result.sheet.value(row, column).kind, CellKind::kEmpty);
  }
}

TEST(WorksheetReader, TellsTheRowsDoneAndStopsWhenTold) {
  std::string records;
  for (unsigned row = 0; row < 2000; ++row) records += record(biff::kRk, cellAt(row, 0) + u32(2));
  int calls = 0;
  int last = 0;
  const auto whole = readWorkbookStream(oneSheet(records), 4, [&](int rows) {
    EXPECT_LE(rows - last, 500);
    last = rows;
    ++calls;
    return true;
  });
  EXPECT_EQ(whole.sheet.rows(), 2000);
  EXPECT_GE(calls, 4);
  const auto cancelled = readWorkbookStream(oneSheet(records), 4, [](int rows) { return rows < 1000; });
  EXPECT_EQ(cancelled.error, WorkbookReadError::kCancelled);
  EXPECT_EQ(cancelled.sheet.rows(), 0);
}

}  // namespace
}  // namespace vireon::tests
