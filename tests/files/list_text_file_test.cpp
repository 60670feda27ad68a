#include "files/list_text_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "form/main_form.h"

namespace vireon::files {
namespace {

class ListTextFile : public testing::Test {
 protected:
  ListTextFile() {
    form_.grdLog.setRows(10);
    row(0, {"  R/No", "Time", "Reading", "    Remarks"});
    row(1, {"00001", "1:02:03", "-1.234mV", ""});
    row(2, {"00002", "--EOD---", "", "last"});
  }

  void row(int number, const ListRow& texts) {
    for (int column = 0; column < 4; ++column) {
      form_.grdLog.setText(number, column, texts[static_cast<std::size_t>(column)]);
    }
  }

  ListText text() { return listText(form_.grdLog, writtenRows(form_.grdLog)); }

  form::MainForm form_;
};

using Rows = std::vector<ListRow>;

TEST_F(ListTextFile, IsALineOfFourFieldsForEachRowWithTheTimesFormatted) {
  EXPECT_EQ(text().bytes,
            "  R/No\tTime\tReading\t    Remarks\r\n"
            "00001\t01:02:03\t-1.234mV\t\r\n"
            "00002\t--EOD---\t\tlast\r\n");
  EXPECT_TRUE(text().complete);
}

TEST_F(ListTextFile, EndsBeforeTheFirstRowWithoutANumber) {
  row(3, {"", "1:00", "x", "y"});
  row(4, {"00004", "1:00", "x", "y"});
  EXPECT_EQ(writtenRows(form_.grdLog), 3);
  EXPECT_EQ(text().bytes.find("00004"), std::string::npos);
}

TEST_F(ListTextFile, ReachesTheGridsLastRow) {
  form_.grdLog.setRows(3);
  EXPECT_EQ(writtenRows(form_.grdLog), 3);
}

TEST_F(ListTextFile, IsInTheCodePageOfTheSystem) {
  row(1, {"00001", "", "5 µA ± 1", "20 € – „Ä“"});
  EXPECT_EQ(text().bytes.substr(33, 34), "00001\t\t5 \xB5\x41 \xB1 1\t20 \x80 \x96 \x84\xC4\x93\r\n00002\t");
  EXPECT_TRUE(text().complete);
}

TEST_F(ListTextFile, SaysWhenALetterHadToGiveWay) {
  row(1, {"00001", "", "한글", ""});
  const ListText result = text();
  EXPECT_NE(result.bytes.find("00001\t\t??\t\r\n"), std::string::npos);
  EXPECT_FALSE(result.complete);
}

TEST_F(ListTextFile, ACellCannotBreakItsLine) {
  row(1, {"00001", "a\tb", "c\r\nd", "e\x1A"});
  const ListText result = text();
  EXPECT_NE(result.bytes.find("00001\ta b\tc  d\te \r\n"), std::string::npos);
  EXPECT_FALSE(result.complete);
}

TEST_F(ListTextFile, ReadsBackAsItsRows) {
  row(1, {"00001", "01:02:03", "5 µA", "€"});
  EXPECT_EQ(listRows(text().bytes).rows, (Rows{{"  R/No", "Time", "Reading", "    Remarks"},
                                               {"00001", "01:02:03", "5 µA", "€"},
                                               {"00002", "--EOD---", "", "last"}}));
}

TEST(ListRows, ALineWithFewerFieldsFillsTheFirstCellsAlone) {
  EXPECT_EQ(listRows("a\r\nb\tc\r\n\r\n\td\r\n").rows,
            (Rows{{"a", "", "", ""}, {"b", "c", "", ""}, {"", "", "", ""}, {"", "d", "", ""}}));
}

TEST(ListRows, WhatFollowsTheFourthFieldIsLeftOut) {
  EXPECT_EQ(listRows("a\tb\tc\td\te\tf").rows, (Rows{{"a", "b", "c", "d"}}));
}

TEST(ListRows, LinesEndWithLineFeedOrCarriageReturnTooAndTheFileWithItsMark) {
  EXPECT_EQ(listRows("a\nb\rc\r\nd\x1A").rows,
            (Rows{{"a", "", "", ""}, {"b", "", "", ""}, {"c", "", "", ""}, {"d", "", "", ""}}));
  EXPECT_EQ(listRows("a\r\n\x1A\r\nb").rows, (Rows{{"a", "", "", ""}}));
  EXPECT_TRUE(listRows("").rows.empty());
}

TEST(ListLines, AreCountedWithoutReadingThem) {
  EXPECT_EQ(listLines(""), 0U);
  EXPECT_EQ(listLines("a"), 1U);
  EXPECT_EQ(listLines("a\r\nb\nc\r"), 3U);
  EXPECT_EQ(listLines("a\r\n\r\nb\x1A\r\n"), 3U);
}

TEST_F(ListTextFile, ToldToStopItStops) {
  form_.grdLog.setRows(3000);
  for (int number = 0; number < 3000; ++number) {
    form_.grdLog.setText(number, 0, "x");
  }
  std::vector<int> told;
  const auto stop = [&](int done) {
    told.push_back(done);
    return done < 1000;
  };
  EXPECT_TRUE(listText(form_.grdLog, 3000, stop).cancelled);
  EXPECT_EQ(told, (std::vector<int>{500, 1000}));
  told.clear();
  EXPECT_TRUE(listRows(listText(form_.grdLog, 3000).bytes, stop).cancelled);
  EXPECT_EQ(told, (std::vector<int>{500, 1000}));
}

TEST_F(ListTextFile, AListThatShrinksMeanwhileEndsTheFile) {
  form_.grdLog.setRows(3000);
  for (int number = 0; number < 3000; ++number) {
    form_.grdLog.setText(number, 0, "x");
  }
  const ListText result = listText(form_.grdLog, 3000, [&](int) {
    form_.grdLog.setRows(600);
    return true;
  });
  EXPECT_EQ(listLines(result.bytes), 600U);
}

}  // namespace
}  // namespace vireon::files
