#include "files/waveform_file.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "tests/scope/waveform_frame.h"

namespace vireon::files {
namespace {

using Read = std::array<std::uint8_t, kWaveformBytesRead>;

// A file of bytes with this text in place of the line of that number, from 1.
std::string fileWithLine(int line, const std::string& text) {
  std::string file;
  for (int number = 1; number <= 289; ++number) {
    file += number == line ? text : " 7 \r\n";
  }
  return file;
}

ListReadResult readOf(std::string_view file) {
  Read read{};
  return readWaveform(file, read);
}

TEST(WaveformFile, IsALineForEachByteToTheByte) {
  tests::FrameBytes frame{};
  for (std::size_t i = 0; i < frame.size(); ++i) {
    frame[i] = static_cast<std::uint8_t>(i);
  }
  std::string expected;
  for (int i = 0; i < 289; ++i) {
    expected += " " + std::to_string(i % 256) + " \r\n";
  }
  EXPECT_EQ(waveformFile(frame), expected);
}

TEST(WaveformFile, GivesBackEveryByteButTheLastFour) {
  const tests::FrameBytes frame = tests::WaveformFields{}.bytes();
  Read read{};
  EXPECT_EQ(readWaveform(waveformFile(frame), read).error, ListError::kNone);
  EXPECT_TRUE(std::equal(read.begin(), read.end(), frame.begin()));
}

TEST(WaveformFile, IsReadWithoutItsLastFourLines) {
  EXPECT_EQ(readOf(fileWithLine(286, "no number\r\n")).error, ListError::kNone);
}

TEST(WaveformFile, IsReadWithOtherLineEndsAndWithAnEndOfFileMark) {
  const tests::FrameBytes frame = tests::WaveformFields{}.bytes();
  std::string unix = waveformFile(frame);
  std::erase(unix, '\r');
  for (const std::string& file : {unix, waveformFile(frame) + "\x1A"}) {
    Read read{};
    EXPECT_EQ(readWaveform(file, read).error, ListError::kNone);
    EXPECT_TRUE(std::equal(read.begin(), read.end(), frame.begin()));
  }
}

TEST(WaveformFile, EveryValueOfAByteIsRead) {
  for (int value = 0; value < 256; ++value) {
    Read read{};
    EXPECT_EQ(readWaveform(fileWithLine(285, std::to_string(value) + "\n"), read).error, ListError::kNone);
    EXPECT_EQ(read.back(), value);
  }
}

TEST(WaveformFile, HexadecimalTextAndFractionsReadAsBytes) {
  Read read{};
  EXPECT_EQ(readWaveform(fileWithLine(1, "&HFE\r\n"), read).error, ListError::kNone);
  EXPECT_EQ(read[0], 254);
  EXPECT_EQ(readWaveform(fileWithLine(1, "254.5\r\n"), read).error, ListError::kNone);
  EXPECT_EQ(read[0], 254);
}

TEST(WaveformFile, AValueThatIsNoByteEndsTheReadingAtItsLine) {
  for (const char* text : {"256", "-1", "255.5", "x", "1x", "", "1e30", "\"7", "nan"}) {
    const ListReadResult result = readOf(fileWithLine(12, std::string(text) + "\r\n"));
    if (std::string(text) == "\"7") {
      EXPECT_EQ(result.error, ListError::kNone) << "a quoted field is one too";
      continue;
    }
    EXPECT_EQ(result.error, ListError::kNoNumber) << text;
    EXPECT_EQ(result.line, 12) << text;
  }
}

TEST(WaveformFile, OneThatEndsTooEarlyLeavesWhatItHad) {
  for (const std::size_t lines : {0U, 1U, 100U, 284U}) {
    std::string file;
    for (std::size_t line = 0; line < lines; ++line) {
      file += " 7 \r\n";
    }
    Read read{};
    read.fill(9);
    const ListReadResult result = readWaveform(file, read);
    EXPECT_EQ(result.error, ListError::kTooShort);
    EXPECT_EQ(result.line, static_cast<int>(lines));
    EXPECT_EQ(std::count(read.begin(), read.end(), 7), static_cast<int>(lines));
    EXPECT_EQ(std::count(read.begin(), read.end(), 9), static_cast<int>(read.size() - lines));
  }
}

}  // namespace
}  // namespace vireon::files
