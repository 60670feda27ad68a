#include "files/trend_file.h"

#include <gtest/gtest.h>

#include <string>

#include "protocol/trend_plot.h"

namespace vireon::files {
namespace {

using protocol::kTrendPoints;

class TrendFile : public testing::Test {
 protected:
  TrendFile() {
    form_.vdtrd[7].setCaption("20Sec");
    form_.vdtrd[1].setCaption("+100mV");
    form_.vdtrd[2].setCaption("-100mV");
    form_.vdtrd[3].setCaption("10Min");
    for (std::size_t point = 0; point < kTrendPoints; ++point) {
      state_.trdBuf[point] = "&H" + std::string(1, "0123456789ABCDEF"[point / 16]) + "A";
    }
  }

  std::string file() { return trendFile(form_, state_); }
  ListReadResult read(std::string_view bytes) { return readTrend(bytes, form_, state_); }

  std::string captions() {
    return form_.vdtrd[7].caption() + "|" + form_.vdtrd[1].caption() + "|" + form_.vdtrd[2].caption() + "|" +
           form_.vdtrd[3].caption();
  }

  // A file with these three captions' lines and this text as its first point's line.
  static std::string fileOf(const std::string& captions, const std::string& firstPoint = "1\r\n") {
    std::string file = captions + firstPoint;
    for (int point = 1; point < kTrendPoints; ++point) {
      file += " 2 \r\n";
    }
    return file;
  }

  form::MainForm form_;
  protocol::InstrumentState state_;
};

TEST_F(TrendFile, IsTheCaptionsAndThePointsAsTheyAre) {
  state_.trdBuf[0] = "&H3A";
  state_.trdBuf[1] = 58.0;
  state_.trdBuf[2] = -2.5;
  state_.trdBuf[3] = protocol::TrendPoint();
  state_.trdBuf[120] = "&HFF";
  std::string expected = "20Sec\r\n+100mV\r\n10Min\r\n&H3A\r\n 58 \r\n-2.5 \r\n 0 \r\n";
  for (std::size_t point = 4; point < kTrendPoints; ++point) {
    expected += std::get<std::string>(state_.trdBuf[point]) + "\r\n";
  }
  EXPECT_EQ(file(), expected);
}

TEST_F(TrendFile, ReadsBackAsTheSameValues) {
  const auto points = state_.trdBuf;
  EXPECT_EQ(read(file()).error, ListError::kNone);
  for (std::size_t point = 0; point < kTrendPoints; ++point) {
    EXPECT_EQ(state_.trdBuf[point], protocol::TrendPoint(protocol::numberOf(points[point])));
  }
}

TEST_F(TrendFile, OneThatWasReadIsWrittenAsNumbers) {
  EXPECT_EQ(read(fileOf("a\r\nb\r\nc\r\n", "&H3A\r\n")).error, ListError::kNone);
  EXPECT_EQ(file(), fileOf("a\r\nb\r\nc\r\n", " 58 \r\n"));
}

TEST_F(TrendFile, ShowsTheUpperLimitAtTheLowerOneToo) {
  EXPECT_EQ(read(fileOf("1Min\r\n+5V\r\n9Min\r\n")).error, ListError::kNone);
  EXPECT_EQ(captions(), "1Min|+5V|+5V|9Min");
}

TEST_F(TrendFile, ACaptionWithACommaComesBackCutAtIt) {
  form_.vdtrd[7].setCaption("1,5Sec");
  form_.vdtrd[1].setCaption("  +1,0V");
  EXPECT_EQ(read(file()).error, ListError::kNone);
  EXPECT_EQ(captions(), "1|+1|+1|10Min");
}

TEST_F(TrendFile, EmptyCaptionsComeBackEmpty) {
  EXPECT_EQ(read(fileOf("\r\n\r\n\r\n")).error, ListError::kNone);
  EXPECT_EQ(captions(), "|||");
}

TEST_F(TrendFile, AQuotedCaptionIsReadWithoutItsQuotes) {
  EXPECT_EQ(read(fileOf("\"1,5\"\r\n\"+5 V\"\r\nx\r\n")).error, ListError::kNone);
  EXPECT_EQ(captions(), "1,5|+5 V|+5 V|x");
}

TEST_F(TrendFile, IsReadWithOtherLineEndsAndWithAnEndOfFileMark) {
  std::string unix = file();
  std::erase(unix, '\r');
  EXPECT_EQ(read(unix).error, ListError::kNone);
  EXPECT_EQ(read(file() + "\x1A").error, ListError::kNone);
}

TEST_F(TrendFile, APointThatNeverCameIsAnEmptyLineOfOlderFiles) {
  EXPECT_EQ(read(fileOf("a\r\nb\r\nc\r\n", "\r\n")).error, ListError::kNone);
  EXPECT_EQ(state_.trdBuf[0], protocol::TrendPoint(0.0));
}

TEST_F(TrendFile, APointThatIsNoNumberEndsTheReadingWithWhatCameBefore) {
  for (const char* text : {"x", "20Sec", "&HXY", "40000", "-1e9", "nan"}) {
    state_.trdBuf[0] = 77.0;
    const ListReadResult result = read(fileOf("a\r\nb\r\nc\r\n", std::string(text) + "\r\n"));
    EXPECT_EQ(result.error, ListError::kNoNumber) << text;
    EXPECT_EQ(result.line, 4) << text;
    EXPECT_EQ(captions(), "a|b|b|c");
    EXPECT_EQ(state_.trdBuf[0], protocol::TrendPoint(77.0));
  }
}

TEST_F(TrendFile, OneThatEndsTooEarlyLeavesTheLabelsAndPointsReadSoFar) {
  EXPECT_EQ(read("").error, ListError::kTooShort);
  EXPECT_EQ(captions(), "20Sec|+100mV|-100mV|10Min");
  EXPECT_EQ(read("x\r\n").line, 1);
  EXPECT_EQ(captions(), "x|+100mV|-100mV|10Min");
  EXPECT_EQ(read("x\r\ny\r\n").error, ListError::kTooShort);
  EXPECT_EQ(captions(), "x|y|y|10Min");
  const ListReadResult result = read("x\r\ny\r\nz\r\n 5 \r\n 6 \r\n");
  EXPECT_EQ(result.error, ListError::kTooShort);
  EXPECT_EQ(result.line, 5);
  EXPECT_EQ(captions(), "x|y|y|z");
  EXPECT_EQ(state_.trdBuf[1], protocol::TrendPoint(6.0));
  EXPECT_EQ(state_.trdBuf[2], protocol::TrendPoint("&H0A"));
  EXPECT_EQ(read(fileOf("a\r\nb\r\nc\r\n").substr(0, 9 + 3 + 118 * 5)).error, ListError::kTooShort);
}

TEST_F(TrendFile, IsDrawnAs119RedLines) {
  EXPECT_EQ(read(fileOf("a\r\nb\r\nc\r\n", " 40.5 \r\n")).error, ListError::kNone);
  drawTrend(form_, state_);
  const auto lines = form_.picTrd.lines();
  ASSERT_EQ(lines.size(), 119U);
  EXPECT_EQ(lines[0], (form::Line{750, 1260 - 1215, 780, 1200, form::kRed}));
  EXPECT_EQ(lines[118], (form::Line{750 + 30 * 118, 1200, 750 + 30 * 119, 1200, form::kRed}));
  EXPECT_EQ(form_.barTrd.value(), 119);
}

}  // namespace
}  // namespace vireon::files
