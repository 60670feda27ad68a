#include "files/workbook_writer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/record_reader.h"
#include "files/workbook_globals_writer.h"
#include "tests/files/grid_text.h"
#include "tests/files/workbook_bytes.h"

namespace vireon::tests {
namespace {

namespace biff = files::biff;
using files::CellFormat;
using files::SheetText;
using files::WorkbookWriteError;
using files::writeWorkbookStream;

// Every record of that number, in the stream's order.
std::vector<std::string> recordsOf(const std::string& stream, unsigned number) {
  std::vector<std::string> contents;
  files::RecordReader records(stream);
  while (records.next()) {
    if (records.record() == number) contents.emplace_back(records.content());
  }
  return contents;
}

std::string streamOf(const GridText& grid) {
  return writeWorkbookStream(sheetOf(grid)).stream;
}

std::string formatAs(CellFormat format) {
  return u16(static_cast<unsigned>(format));
}

WorkbookWriteError errorOf(int rows, int columns, const std::string& text) {
  return writeWorkbookStream({rows, columns, [&](int, int) -> std::string_view { return text; }}).error;
}

TEST(WorkbookWriter, CellsAreNumbersTimesAndTexts) {
  const std::string stream = streamOf({kHeader, {"00012", "01:02:03", "-1.234mV", ""}});
  const auto numbers = recordsOf(stream, biff::kRk);
  ASSERT_EQ(numbers.size(), 1U);
  EXPECT_EQ(numbers[0], u16(1) + u16(0) + formatAs(CellFormat::kRecordNumber) + u32(12U << 2U | 2U));
  const auto times = recordsOf(stream, biff::kNumber);
  ASSERT_EQ(times.size(), 1U);
  EXPECT_EQ(times[0], u16(1) + u16(1) + formatAs(CellFormat::kTime) + f64(3723 / 86400.0));
  const auto texts = recordsOf(stream, biff::kLabelSst);
  ASSERT_EQ(texts.size(), 5U);  // the header's and the reading; nothing for the empty remark
  EXPECT_EQ(texts[4], u16(1) + u16(2) + formatAs(CellFormat::kText) + u32(4));
}

TEST(WorkbookWriter, TextsThatAreNearlyNumbersOrTimesStayTexts) {
  for (const char* number : {"0001", "000012", "-0012", "0001:", "0001/", "1.234"}) {
    const std::string stream = streamOf({kHeader, {number, "", "", ""}});
    EXPECT_TRUE(recordsOf(stream, biff::kRk).empty()) << number;
    EXPECT_EQ(recordsOf(stream, biff::kLabelSst).size(), 5U) << number;
  }
  for (const char* time : {"1:02:03", "01:02:030", "01-02:03", "01:02-03", "aa:02:03", "01:aa:03", "01:02:aa",
                           "24:00:00", "00:60:00", "00:00:60"}) {
    const std::string stream = streamOf({kHeader, {"", time, "", ""}});
    EXPECT_TRUE(recordsOf(stream, biff::kNumber).empty()) << time;
    EXPECT_EQ(recordsOf(stream, biff::kLabelSst).size(), 5U) << time;
  }
}

TEST(WorkbookWriter, LargestNumberAndTimeAreNoTexts) {
  const std::string stream = streamOf({kHeader, {"99999", "23:59:59", "", ""}});
  EXPECT_EQ(recordsOf(stream, biff::kRk)[0].substr(6), u32(99999U << 2U | 2U));
  EXPECT_EQ(recordsOf(stream, biff::kNumber)[0].substr(6), f64(86399 / 86400.0));
}

TEST(WorkbookWriter, HeaderIsInBoldWhateverItHolds) {
  const std::string stream = streamOf({{"00001", "00:00:01", "x", "y"}, {"00002", "00:00:02", "x", "y"}});
  const std::string row0 = u16(0);
  EXPECT_EQ(recordsOf(stream, biff::kRk)[0].substr(0, 6),
            row0 + u16(0) + formatAs(CellFormat::kBoldRecordNumber));
  EXPECT_EQ(recordsOf(stream, biff::kNumber)[0].substr(0, 6),
            row0 + u16(1) + formatAs(CellFormat::kBoldTime));
  EXPECT_EQ(recordsOf(stream, biff::kLabelSst)[0].substr(0, 6),
            row0 + u16(2) + formatAs(CellFormat::kBoldText));
  const auto formats = recordsOf(stream, biff::kXf);
  ASSERT_EQ(formats.size(), 21U);
  const auto fonts = recordsOf(stream, biff::kFont);
  ASSERT_EQ(fonts.size(), 5U);
  for (std::size_t format = 0; format < formats.size(); ++format) {
    const bool bold = format >= static_cast<std::size_t>(CellFormat::kBoldText);
    EXPECT_EQ(formats[format].substr(0, 2), u16(bold ? 5 : 0)) << format;  // no font has the number 4
  }
  EXPECT_EQ(fonts[0].substr(2, 2), u16(0));
  EXPECT_EQ(fonts[0].substr(6, 2), u16(400));
  EXPECT_EQ(fonts[4].substr(2, 2), u16(1));
  EXPECT_EQ(fonts[4].substr(6, 2), u16(700));
}

TEST(WorkbookWriter, FormatsAreThoseOfTheImport) {
  const auto formats = recordsOf(streamOf({kHeader}), biff::kFormat);
  ASSERT_EQ(formats.size(), 2U);
  EXPECT_EQ(formats[0], u16(164) + narrow("00000"));
  EXPECT_EQ(formats[1], u16(165) + narrow("hh:mm:ss"));
}

TEST(WorkbookWriter, EqualTextsAreWrittenOnce) {
  const auto tables = recordsOf(streamOf({{"a", "a", "a", "b"}}), biff::kSst);
  ASSERT_EQ(tables.size(), 1U);
  EXPECT_EQ(tables[0], u32(4) + u32(2) + narrow("a") + narrow("b"));
}

TEST(WorkbookWriter, TextsBeyondLatinLettersAreWide) {
  const auto tables = recordsOf(streamOf({{"\xC3\xBF", "\xC4\x80", "", ""}}), biff::kSst);
  EXPECT_EQ(tables[0], u32(2) + u32(2) + narrow("\xFF") + wide(u"\u0100"));
}

TEST(WorkbookWriter, BytesThatAreNoUtf8BecomeReplacements) {
  const auto tables = recordsOf(streamOf({{"a\xFF", "", "", ""}}), biff::kSst);
  EXPECT_EQ(tables[0], u32(1) + u32(1) + wide(u"a\uFFFD"));
}

TEST(WorkbookWriter, NoRecordIsLongerThanReadersTake) {
  GridText grid = loggerGrid(20000);
  grid.push_back({std::string(32767, 'x'), "", "", ""});
  const std::string stream = streamOf(grid);
  files::RecordReader records(stream);
  std::size_t end = 0;
  while (records.next()) {
    ASSERT_LE(records.content().size(), biff::kLongest);
    end = records.position() + biff::kHeader + records.content().size();
  }
  EXPECT_EQ(end, stream.size());
}

TEST(WorkbookWriter, PairOfUnitsIsNotSplit) {
  std::string pairs;
  for (int pair = 0; pair < 6000; ++pair) pairs += "\xF0\x9F\x98\x80";
  for (const char* before : {"", "a"}) {
    const auto parts = recordsOf(streamOf({{before + pairs, "", "", ""}}), biff::kContinue);
    ASSERT_GE(parts.size(), 1U);
    for (const std::string& part : parts) {
      EXPECT_EQ(part[0], '\x01');
      EXPECT_EQ(part.substr(1, 2), u16(0xD83D));
    }
  }
}

TEST(WorkbookWriter, IndexOfTextsPointsAtThem) {
  const std::string stream = streamOf(loggerGrid(20000));
  const auto index = recordsOf(stream, biff::kExtSst);
  ASSERT_EQ(index.size(), 1U);
  files::RecordReader records(stream);
  std::size_t buckets = 0;
  while (records.next()) {
    for (std::size_t at = 2; at < index[0].size(); at += 8) {
      const std::size_t position = files::u32At(index[0], at);
      const std::size_t start = records.position() + biff::kHeader;
      if (position < start || position >= start + records.content().size()) continue;
      ++buckets;
      EXPECT_EQ(position - records.position(), files::u16At(index[0], at + 4));
      EXPECT_TRUE(records.record() == biff::kSst || records.record() == biff::kContinue);
      EXPECT_EQ(stream[position + 2], '\0');  // the flags of a narrow text
      EXPECT_LT(files::u16At(stream, position), 12);
    }
  }
  EXPECT_EQ(buckets, (index[0].size() - 2) / 8);
  EXPECT_GT(buckets, 100U);
}

TEST(WorkbookWriter, IndexOfRowsPointsAtEachBlocksEnd) {
  const std::string stream = streamOf(loggerGrid(99));
  const auto index = recordsOf(stream, biff::kIndex);
  ASSERT_EQ(index.size(), 1U);
  ASSERT_EQ(index[0].size(), 16U + 4 * 4);  // 100 rows, 32 in a block
  EXPECT_EQ(files::u32At(index[0], 8), 100U);
  EXPECT_EQ(files::u16At(stream, files::u32At(index[0], 12)), biff::kDefaultColumnWidth);
  for (std::size_t at = 16; at < index[0].size(); at += 4) {
    const std::size_t close = files::u32At(index[0], at);
    EXPECT_EQ(files::u16At(stream, close), biff::kDbCell);
    const std::size_t firstRow = close - files::u32At(stream, close + 4);
    EXPECT_EQ(files::u16At(stream, firstRow), biff::kRow);
    const std::size_t firstCell = firstRow + 20 + files::u16At(stream, close + 8);
    EXPECT_EQ(files::u16At(stream, firstCell + 4), files::u16At(stream, firstRow + 4));  // the same row
  }
}

TEST(WorkbookWriter, SheetsExtentIsThatOfItsTexts) {
  const auto extent = recordsOf(streamOf({kHeader, {"a", "", "", ""}, {}, {}}), biff::kDimensions);
  ASSERT_EQ(extent.size(), 1U);
  EXPECT_EQ(extent[0], u32(0) + u32(2) + u16(0) + u16(4) + u16(0));
}

TEST(WorkbookWriter, EmptyGridIsAnEmptySheet) {
  for (const GridText& grid : {GridText{}, GridText{{}}}) {
    const auto result = writeWorkbookStream(sheetOf(grid));
    EXPECT_EQ(result.error, WorkbookWriteError::kNone);
    EXPECT_TRUE(files::importRows(result.stream).rows.empty());
    EXPECT_EQ(files::importRows(result.stream).error, files::WorkbookReadError::kNone);
  }
}

TEST(WorkbookWriter, GridWithoutColumnsIsAnEmptySheet) {
  const auto result = writeWorkbookStream({3, 0, [](int, int) -> std::string_view { return "x"; }});
  EXPECT_EQ(result.error, WorkbookWriteError::kNone);
  EXPECT_TRUE(recordsOf(result.stream, biff::kColumnInfo).empty());
  EXPECT_EQ(recordsOf(result.stream, biff::kDimensions)[0], std::string(14, '\0'));
  EXPECT_TRUE(files::importRows(result.stream).rows.empty());
}

TEST(WorkbookWriter, RefusesMoreRowsThanASheetHas) {
  EXPECT_EQ(errorOf(65536, 1, "x"), WorkbookWriteError::kNone);
  EXPECT_EQ(errorOf(65537, 1, "x"), WorkbookWriteError::kTooManyRows);
}

TEST(WorkbookWriter, EmptyRowsAtTheEndDoNotCount) {
  const auto upTo = [](int used) {
    return writeWorkbookStream(
        {70000, 1, [used](int row, int) -> std::string_view { return row < used ? "x" : ""; }});
  };
  EXPECT_EQ(upTo(65536).error, WorkbookWriteError::kNone);
  EXPECT_EQ(files::importRows(upTo(65536).stream).rows.size(), 65536U);
  EXPECT_EQ(upTo(65537).error, WorkbookWriteError::kTooManyRows);
}

TEST(WorkbookWriter, RefusesMoreColumnsThanASheetHas) {
  EXPECT_EQ(errorOf(2, 256, "x"), WorkbookWriteError::kNone);
  EXPECT_EQ(errorOf(2, 257, "x"), WorkbookWriteError::kTooManyColumns);
}

TEST(WorkbookWriter, RefusesATextLongerThanACellTakes) {
  EXPECT_EQ(errorOf(1, 1, std::string(32767, 'x')), WorkbookWriteError::kNone);
  EXPECT_EQ(errorOf(1, 1, std::string(32768, 'x')), WorkbookWriteError::kTextTooLong);
  std::string wideText;
  for (int unit = 0; unit < 32767; ++unit) wideText += "한";
  EXPECT_EQ(errorOf(1, 1, wideText), WorkbookWriteError::kNone);
  EXPECT_EQ(errorOf(1, 1, wideText + "한"), WorkbookWriteError::kTextTooLong);
}

TEST(WorkbookWriter, RefusesMoreThanItWouldRead) {
  std::string text(32000, 'x');
  // All texts together; and texts that leave no room for the rest of the file.
  for (const int rows : {700, 520}) {
    int cell = 0;
    const auto result = writeWorkbookStream({rows, 4, [&](int, int) -> std::string_view {
                                               text.replace(0, 8, std::to_string(10000000 + ++cell));
                                               return text;
                                             }});
    EXPECT_EQ(result.error, WorkbookWriteError::kTooLarge);
    EXPECT_TRUE(result.stream.empty());
  }
}

TEST(WorkbookWriter, TellsTheRowsDoneAndStopsWhenTold) {
  const GridText grid = loggerGrid(2000);
  int last = 0;
  const auto whole = writeWorkbookStream(sheetOf(grid), [&](int rows) {
    EXPECT_LE(rows - last, 500);
    last = rows;
    return true;
  });
  EXPECT_EQ(whole.error, WorkbookWriteError::kNone);
  EXPECT_GT(last, 1500);
  const auto cancelled = writeWorkbookStream(sheetOf(grid), [](int rows) { return rows < 1000; });
  EXPECT_EQ(cancelled.error, WorkbookWriteError::kCancelled);
  EXPECT_TRUE(cancelled.stream.empty());
}

TEST(WorkbookWriter, AsksForEachCellOnceAndKeepsNoView) {
  std::vector<int> asked(12, 0);
  std::string text;
  const auto result = writeWorkbookStream({3, 4, [&](int row, int column) -> std::string_view {
                                             ++asked[static_cast<std::size_t>(row * 4 + column)];
                                             text = std::to_string(row) + "-" + std::to_string(column);
                                             return text;
                                           }});
  EXPECT_EQ(asked, std::vector<int>(12, 1));
  EXPECT_EQ(files::importRows(result.stream).rows[2], (files::ListRow{"2-0", "2-1", "2-2", "2-3"}));
}

}  // namespace
}  // namespace vireon::tests
