#include "files/list_print.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_file_store.h"
#include "tests/fakes/fake_printer.h"
#include "tests/fakes/fake_wall_clock.h"
#include "tests/files/list_print_rig.h"

namespace vireon::tests {
namespace {

class ListPrint : public testing::Test {
 protected:
  // The header row and so many records; the row behind them is empty.
  void fill(int records) {
    form.grdLog.setRows(records + 2);
    setRow(0, {"No.", "Time", "Reading", "Remark"});
    for (int row = 1; row <= records; ++row) {
      setRow(row, {"000" + std::to_string(row), "1:2:3", std::to_string(row) + "mV", "DCV"});
    }
  }

  void setRow(int row, const files::ListRow& line) { rig.setRow(row, line); }

  // The texts of a printed page, line by line, "|" between the columns.
  std::vector<std::string> page(std::size_t number) const {
    std::vector<std::string> lines;
    double y = -1;
    for (const FakePrinter::Text& text : printer.pages.at(number).texts) {
      if (text.y == y) {
        lines.back() += "|" + text.text;
      } else {
        lines.push_back(text.text);
      }
      y = text.y;
    }
    return lines;
  }

  FakePrinter printer;
  FakeFileStore files;
  FakeMessageBoxes messages;
  FakeWallClock clock{platform::CalendarTime{2007, 12, 21, 14, 5, 9}};
  files::PrintOut printOut{printer, files, clock, "folder"};
  ListPrintRig rig{messages, printOut};
  form::MainForm& form = rig.form;
};

TEST_F(ListPrint, PrintsTheHeaderRowAndTheRecordsWithTheTimeFormatted) {
  fill(2);
  form.cmdLprt.click();
  ASSERT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(printer.jobs[0].title, "Logger list");
  ASSERT_EQ(printer.pages.size(), 1U);
  EXPECT_EQ(page(0), (std::vector<std::string>{"No.|Time|Reading|Remark", "0001|01:02:03|1mV|DCV",
                                               "0002|01:02:03|2mV|DCV"}));
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(ListPrint, StopsBeforeTheFirstRowWhoseColumn2IsEmpty) {
  fill(5);
  form.grdLog.setText(3, 2, "");
  EXPECT_EQ(files::printedRows(form.grdLog), 3);
}

TEST_F(ListPrint, AnEmptyColumn0StopsNothing) {
  fill(5);
  form.grdLog.setText(2, 0, "");
  EXPECT_EQ(files::printedRows(form.grdLog), 6);
}

TEST_F(ListPrint, StopsAfterTheRowWhoseColumn1IsTheEndOfData) {
  fill(5);
  form.grdLog.setText(2, 1, "--EOD---");
  EXPECT_EQ(files::printedRows(form.grdLog), 3);
  form.cmdLprt.click();
  EXPECT_EQ(page(0).back(), "0002|--EOD---|2mV|DCV");
}

TEST_F(ListPrint, TheEndRowOfADownloadIsNotPrinted) {
  fill(3);
  setRow(3, {"--EOD---", "", "", ""});
  EXPECT_EQ(files::printedRows(form.grdLog), 3);
}

TEST_F(ListPrint, OtherEndMarksStopNothing) {
  fill(5);
  form.grdLog.setText(2, 1, "--EOD--");
  form.grdLog.setText(3, 0, "--EOD---");
  EXPECT_EQ(files::printedRows(form.grdLog), 6);
}

TEST_F(ListPrint, AFullGridIsPrintedToItsLastRow) {
  fill(5);
  form.grdLog.setRows(6);
  EXPECT_EQ(files::printedRows(form.grdLog), 6);
}

TEST_F(ListPrint, AHeaderRowAloneIsPrinted) {
  fill(0);
  form.cmdLprt.click();
  EXPECT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(page(0), (std::vector<std::string>{"No.|Time|Reading|Remark"}));
}

TEST_F(ListPrint, AnEmptyListPrintsNothingAndSaysSoOnTheStatusBar) {
  form.cmdLprt.click();
  EXPECT_EQ(printer.documents, 0U);
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(form.StatusBar1.panel(1), "The list is empty");
}

TEST_F(ListPrint, AListOfFewerColumnsPrintsNothing) {
  form.grdLog.setColumns(3);
  form.grdLog.setText(0, 2, "text");
  form.cmdLprt.click();
  EXPECT_EQ(printer.documents, 0U);
}

TEST_F(ListPrint, TheHeaderRowStandsOnEachPage) {
  fill(25);  // 10 lines on a page, 9 of them records
  form.cmdLprt.click();
  ASSERT_EQ(printer.pages.size(), 3U);
  for (std::size_t number = 0; number < 3; ++number) {
    EXPECT_EQ(page(number).front(), "No.|Time|Reading|Remark") << number;
  }
  EXPECT_EQ(page(0).size(), 10U);
  EXPECT_EQ(page(1)[1], "00010|01:02:03|10mV|DCV");
  EXPECT_EQ(page(2).size(), 8U);
  EXPECT_EQ(page(2).back(), "00025|01:02:03|25mV|DCV");
}

TEST_F(ListPrint, AFullLastPageIsFollowedByNoEmptyOne) {
  fill(18);
  form.cmdLprt.click();
  EXPECT_EQ(printer.pages.size(), 2U);
  EXPECT_EQ(page(1).size(), 10U);
}

TEST_F(ListPrint, TheLinesLieOneBelowTheOtherOnThePage) {
  fill(9);
  form.cmdLprt.click();
  const auto& texts = printer.pages[0].texts;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_DOUBLE_EQ(texts[i].y, static_cast<double>(i / 4) * FakePrinter::kLineHeight);
    EXPECT_LE(texts[i].y + FakePrinter::kLineHeight, printer.area.height);
  }
}

TEST_F(ListPrint, EachColumnStandsAtATabStopWithRoomForItsLongestText) {
  fill(2);
  form.grdLog.setText(2, 2, "a reading of 27 characters.");
  form.cmdLprt.click();
  const auto& texts = printer.pages[0].texts;
  for (std::size_t i = 4; i < texts.size(); ++i) {
    EXPECT_EQ(texts[i].x, texts[i % 4].x) << i;
    EXPECT_GE(texts[i].width, FakePrinter::kLetterWidth * static_cast<double>(texts[i].text.size())) << i;
  }
  for (std::size_t column = 0; column < 3; ++column) {
    EXPECT_LT(texts[column].x + texts[column].width, texts[column + 1].x) << column;
  }
  EXPECT_EQ(texts[3].x + texts[3].width, printer.area.width);
}

TEST_F(ListPrint, AListTooWideForThePageKeepsItsColumnsOnIt) {
  fill(2);
  for (int column = 0; column < 4; ++column) {
    form.grdLog.setText(1, column, std::string(60, 'x'));
  }
  form.cmdLprt.click();
  const auto& texts = printer.pages[0].texts;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_GT(texts[i].width, 0) << i;
    EXPECT_LE(texts[i].x + texts[i].width, printer.area.width + 1e-6) << i;
  }
  EXPECT_LT(texts[0].x + texts[0].width, texts[1].x);
}

TEST_F(ListPrint, APageTooLowForTwoLinesStillTakesARecord) {
  fill(3);
  printer.area.height = 10;
  form.cmdLprt.click();
  EXPECT_EQ(printer.pages.size(), 3U);
}

TEST_F(ListPrint, WithoutAPrinterTheListBecomesAPdf) {
  fill(2);
  printer.installed = false;
  form.cmdLprt.click();
  EXPECT_EQ(files.files.count("folder/List_071221_140509.pdf"), 1U);
  EXPECT_EQ(messages.count(), 1U);
}

TEST_F(ListPrint, WhereTheTrendPlotIsShownTheButtonClearsIt) {
  fill(2);
  form.panTrd.setVisible(true);
  form.picTrd.line(1, 2, 3, 4, form::kRed);
  form.barTrd.setValue(119);
  form.cmdLprt.click();
  EXPECT_TRUE(form.picTrd.lines().empty());
  EXPECT_EQ(form.barTrd.value(), 0);
  EXPECT_EQ(printer.documents, 0U);
}

TEST_F(ListPrint, AListUpToTheLimitIsPrintedInOneGo) {
  fill(files::ListPrint::kLongPrint - 1);
  form.cmdLprt.click();
  EXPECT_EQ(rig.pump.pumps, 0U);
  EXPECT_EQ(printer.jobs.size(), 1U);
}

TEST_F(ListPrint, ALongListShowsItsProgressAndLetsTheWindowLive) {
  fill(1000);
  std::vector<int> progress;
  for (int look = 0; look < 30; ++look) {
    rig.pump.atPump.emplace_back([&] {
      EXPECT_TRUE(rig.work.running());
      progress.push_back(form.barWork.value());
    });
  }
  form.cmdLprt.click();
  ASSERT_EQ(progress.size(), 21U);
  EXPECT_EQ(progress.front(), 0);
  EXPECT_EQ(progress.back(), 1000);
  EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
  EXPECT_FALSE(rig.work.running());
  EXPECT_EQ(printer.jobs.size(), 1U);
}

TEST_F(ListPrint, ALongListThatIsCancelledIsNotPrinted) {
  fill(1000);
  rig.pump.atPump.emplace_back([] {});
  rig.pump.atPump.emplace_back([this] { form.cmdCancel.click(); });
  form.cmdLprt.click();
  EXPECT_EQ(rig.pump.pumps, 2U);
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_FALSE(rig.work.running());
  form.cmdLprt.click();
  EXPECT_EQ(printer.jobs.size(), 1U);
}

TEST_F(ListPrint, ALongListThatIsCancelledWithoutAPrinterLeavesNoFile) {
  fill(1000);
  printer.installed = false;
  rig.pump.atPump.emplace_back([this] { form.cmdCancel.click(); });
  form.cmdLprt.click();
  EXPECT_TRUE(files.files.empty());
}

}  // namespace
}  // namespace vireon::tests
