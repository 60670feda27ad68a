#include "scope/scale_tables.h"

#include <gtest/gtest.h>

namespace vireon::scope {
namespace {

using Texts = std::vector<std::string>;

class ScaleTables : public testing::Test {
 protected:
  template <std::size_t N>
  static Texts all(const std::array<std::string, N>& table) {
    return {table.begin(), table.end()};
  }

  form::MainForm form_;
  protocol::InstrumentState state_;
};

TEST_F(ScaleTables, AreEmptyUntilTheyAreFilled) {
  EXPECT_EQ(all(state_.labels.vdLbl), Texts(13));
  EXPECT_EQ(all(state_.labels.ohmLbl), Texts(5));
  EXPECT_EQ(all(state_.labels.hdvLbl), Texts(26));
  EXPECT_EQ(all(state_.labels.trdSpanLbl), Texts(13));
}

TEST_F(ScaleTables, VoltsPerDivisionHasThirteenCodes) {
  initLbl(form_, state_);
  EXPECT_EQ(all(state_.labels.vdLbl), (Texts{"50mV", "0.1V", "0.2V", "0.5V", "1V", "2V", "5V", "10V", "20V",
                                             "50V", "100V", "200V", "500V"}));
}

TEST_F(ScaleTables, OhmRangesHaveFourCodesAndAnEmptyPlace) {
  initLbl(form_, state_);
  EXPECT_EQ(all(state_.labels.ohmLbl), (Texts{"2k", "20k", "200k", "2M", ""}));
}

TEST_F(ScaleTables, TimePerDivisionHas21CodesAndFiveEmptyPlaces) {
  initLbl(form_, state_);
  EXPECT_EQ(all(state_.labels.hdvLbl),
            (Texts{"1uS", "2uS", "5uS", "10uS", "20uS", "50uS", "0.1mS", "0.2mS", "0.5mS",
                   "1mS", "2mS", "5mS", "10mS", "20mS", "50mS", "0.1S",  "0.2S",  "0.5S",
                   "1S",  "2S",  "5S",  "",     "",     "",     "",      ""}));
}

TEST_F(ScaleTables, TrendSpansHaveTwelveCodesAndAnEmptyPlace) {
  initLbl(form_, state_);
  EXPECT_EQ(all(state_.labels.trdSpanLbl), (Texts{"20Sec", "40Sec", "1Min", "2Min", "5Min", "10Min", "20Min",
                                                  "50Min", "1Hour", "2Hour", "5Hour", "10Hour", ""}));
}

TEST_F(ScaleTables, TheTrendSpanStartsAtTwentySeconds) {
  state_.labels.trdSpan = 7;
  initLbl(form_, state_);
  EXPECT_EQ(state_.labels.trdSpan, 0);
  EXPECT_EQ(form_.lblStm.caption(), "20Sec");
}

TEST_F(ScaleTables, TheModeListHasFiveItemsAndNoneShown) {
  initLbl(form_, state_);
  EXPECT_EQ(form_.cmbDmod.items(),
            (Texts{"DATA LOGGER", "RECORD MODE", "RELATIVE MODE", "COMPARE MODE", "TREND PLOT"}));
  EXPECT_EQ(form_.cmbDmod.listIndex(), -1);
}

TEST_F(ScaleTables, TheFunctionListHasEightItemsAndShowsTheFirst) {
  for (const char* model : {"", "K7310", "K7210", "K7201", "K790", "K79000", "k7900", "K79 00"}) {
    state_.modelId = model;
    initLbl(form_, state_);
    EXPECT_EQ(form_.cmbFun.items(), (Texts{"DCV", "ACV", "OHM", "BZ", "Hz", "RPM", "Pulse Width", "Duty"}))
        << model;
    EXPECT_EQ(form_.cmbFun.listIndex(), 0) << model;
  }
}

TEST_F(ScaleTables, DwellIsListedForTheMeterOnlyModelAlone) {
  for (const char* model : {"K7900", "K7900 ", " K7900", "  K7900  "}) {
    state_.modelId = model;
    initLbl(form_, state_);
    ASSERT_EQ(form_.cmbFun.items().size(), 9U) << model;
    EXPECT_EQ(form_.cmbFun.items()[8], "Dwell") << model;
    EXPECT_EQ(form_.cmbFun.listIndex(), 0) << model;
  }
}

TEST_F(ScaleTables, FillingThemAgainDoublesNoList) {
  initLbl(form_, state_);
  initLbl(form_, state_);
  EXPECT_EQ(form_.cmbDmod.items().size(), 5U);
  EXPECT_EQ(form_.cmbFun.items().size(), 8U);
}

TEST_F(ScaleTables, TheGridGetsItsHeaderRow) {
  initLbl(form_, state_);
  EXPECT_EQ(form_.grdLog.text(0, 0), "  R/No");
  EXPECT_EQ(form_.grdLog.text(0, 1), "Time");
  EXPECT_EQ(form_.grdLog.text(0, 2), "Reading");
  EXPECT_EQ(form_.grdLog.text(0, 3), "    Remarks");
  EXPECT_EQ(form_.grdLog.text(1, 0), "");
  EXPECT_EQ(form_.grdLog.rows(), 13);
}

TEST_F(ScaleTables, TheHeaderRowCanBeWrittenAgainAfterTheGridWasCleared) {
  initLbl(form_, state_);
  form_.grdLog.clear();
  writeGridHeader(form_.grdLog);
  EXPECT_EQ(form_.grdLog.text(0, 0), "  R/No");
  EXPECT_EQ(form_.grdLog.text(0, 3), "    Remarks");
}

TEST_F(ScaleTables, TheGridsColumnsGetTheirWidthsAndAlignment) {
  using form::Alignment;
  initLbl(form_, state_);
  const int widths[] = {900, 0, 1200, 1500};
  const Alignment alignments[] = {Alignment::kCenter, Alignment::kCenter, Alignment::kCenter,
                                  Alignment::kLeft};
  for (int column = 0; column < 4; ++column) {
    EXPECT_EQ(form_.grdLog.columnWidth(column), widths[column]) << column;
    EXPECT_EQ(form_.grdLog.columnAlignment(column), alignments[column]) << column;
  }
}

}  // namespace
}  // namespace vireon::scope
