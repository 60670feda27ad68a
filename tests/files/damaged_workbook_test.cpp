#include <gtest/gtest.h>

#include <string>

#include "files/import_rows.h"
#include "tests/files/grid_text.h"
#include "tests/files/workbook_bytes.h"

namespace vireon::tests {
namespace {

namespace biff = files::biff;
using files::importRows;
using files::WorkbookReadError;

std::string smallStream() {
  return files::writeWorkbookStream(sheetOf(loggerGrid(3))).stream;
}

TEST(DamagedWorkbook, CutOffAnywhereIsRefused) {
  const std::string stream = smallStream();
  ASSERT_EQ(importRows(stream).rows.size(), 4U);
  for (std::size_t length = 0; length < stream.size(); ++length) {
    ASSERT_EQ(importRows(std::string_view(stream).substr(0, length)).error, WorkbookReadError::kMalformed)
        << length;
  }
}

TEST(DamagedWorkbook, BytesBehindTheEndAreIgnored) {
  EXPECT_EQ(importRows(smallStream() + std::string(1000, '\0')).rows.size(), 4U);
}

// Either an error without rows, or rows that are bounded.
TEST(DamagedWorkbook, OneSpoiltByteDoesNoHarm) {
  const std::string stream = smallStream();
  for (std::size_t place = 0; place < stream.size(); ++place) {
    for (const int bits : {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80, 0xFF}) {
      std::string spoilt = stream;
      spoilt[place] = static_cast<char>(spoilt[place] ^ bits);
      const auto result = importRows(spoilt);
      ASSERT_TRUE(result.error == WorkbookReadError::kNone || result.rows.empty());
      ASSERT_LE(result.rows.size(), 65536U);
    }
  }
}

TEST(DamagedWorkbook, SheetThatNeverEndsIsRefused) {
  const std::string stream = oneSheet(record(biff::kRk, cellAt(0, 0) + u32(2)));
  const std::string open = stream.substr(0, stream.size() - end().size());
  EXPECT_EQ(importRows(open).error, WorkbookReadError::kMalformed);
  EXPECT_EQ(importRows(open + begin(0x0020) + end()).error, WorkbookReadError::kMalformed);
}

TEST(DamagedWorkbook, ManySheetsAndFormatsAreBounded) {
  std::string globals;
  for (int index = 0; index < 70000; ++index) {
    globals += record(biff::kXf, u16(0) + u16(14));
    globals += record(biff::kBoundSheet, u32(0) + u8(1) + u8(0) + u8(0));
  }
  EXPECT_EQ(importRows(begin(biff::kGlobals) + globals + end()).error, WorkbookReadError::kNoSheet);
  EXPECT_EQ(importRows(oneSheet(record(biff::kRk, cellAt(0, 0, 65535) + u32(2)), globals)).error,
            WorkbookReadError::kNoSheet);  // the sheet listed behind the 65536th has no number
}

TEST(DamagedWorkbook, TextTableOfAbsurdCountsIsReadAsFarAsItGoes) {
  const std::string texts = record(biff::kSst, u32(0xFFFFFFFF) + u32(0xFFFFFFFF) + narrow("one"));
  EXPECT_EQ(importRows(oneSheet(record(biff::kLabelSst, cellAt(0, 0) + u32(0)), texts)).rows.front()[0],
            "one");
  EXPECT_EQ(importRows(oneSheet(record(biff::kLabelSst, cellAt(0, 0) + u32(1)), texts)).error,
            WorkbookReadError::kMalformed);
}

}  // namespace
}  // namespace vireon::tests
