#include "protocol/trend_plot.h"

#include <gtest/gtest.h>

#include <vector>

namespace vireon::protocol {
namespace {

class TrendPlot : public testing::Test {
 protected:
  std::vector<form::Line> drawn() const { return {form_.picTrd.lines().begin(), form_.picTrd.lines().end()}; }

  form::MainForm form_;
  InstrumentState state_;
};

TEST_F(TrendPlot, ALineEndsAtItsPointAndStartsAtTheOneBefore) {
  state_.trdBuf[1] = "&H0A";
  state_.trdBuf[2] = 40.5;
  drawTrendLine(form_, state_, 1);
  drawTrendLine(form_, state_, 2);
  EXPECT_EQ(drawn(), (std::vector<form::Line>{{750, 1260, 780, 1260 - 300, form::kRed},
                                              {780, 1260 - 300, 810, 1260 - 1215, form::kRed}}));
}

TEST_F(TrendPlot, TheBuffersLastPlaceIsDrawnToo) {
  state_.trdBuf[120] = 1.0;
  drawTrendLine(form_, state_, 120);
  EXPECT_EQ(drawn(), (std::vector<form::Line>{{4320, 1260, 4350, 1230, form::kRed}}));
}

TEST_F(TrendPlot, ClearingEmptiesThePictureAndTheBarAndKeepsThePoints) {
  state_.trdBuf[0] = "&H11";
  drawTrendLine(form_, state_, 1);
  form_.barTrd.setValue(kLastTrendPoint);
  clearTrend(form_);
  EXPECT_TRUE(drawn().empty());
  EXPECT_EQ(form_.barTrd.value(), 0);
  EXPECT_EQ(state_.trdBuf[0], TrendPoint("&H11"));
}

}  // namespace
}  // namespace vireon::protocol
