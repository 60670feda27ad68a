#include "files/text_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/files/workbook_bytes.h"

namespace vireon::tests {
namespace {

namespace biff = files::biff;

struct Reading {
  bool whole = false;
  std::string text;
};

// The first text of a stream's first record, and after it that what follows is "z".
Reading readThenZ(std::string_view stream) {
  files::RecordReader record(stream);
  if (!record.next()) return {};
  files::TextReader reader(record, 0);
  Reading reading;
  std::string next;
  reading.whole = reader.text(&reading.text) && reader.text(&next) && next == "z";
  return reading;
}

Reading readOne(std::string_view content) {
  return readThenZ(record(biff::kSst, std::string(content) + narrow("z")));
}

TEST(TextReader, ReadsNarrowAndWideTexts) {
  EXPECT_EQ(readOne(narrow("abc")).text, "abc");
  EXPECT_EQ(readOne(narrow("\xB5V\xFF")).text, "\xC2\xB5V\xC3\xBF");
  EXPECT_EQ(readOne(wide(u"한글")).text, "한글");
  EXPECT_EQ(readOne(wide(u"\xD83D\xDE00")).text, "\xF0\x9F\x98\x80");
  EXPECT_TRUE(readOne(narrow("")).whole);
  EXPECT_TRUE(readOne(wide(u"")).whole);
}

TEST(TextReader, PassesOverFormattingAndPhoneticText) {
  const std::string runs = u16(0) + u16(5) + u16(1) + u16(6);  // two of four bytes
  const Reading rich = readOne(u16(3) + u8(biff::kRich) + u16(2) + "abc" + runs);
  EXPECT_TRUE(rich.whole);
  EXPECT_EQ(rich.text, "abc");
  const Reading phonetic = readOne(u16(3) + u8(biff::kPhonetic) + u32(5) + "abc" + "12345");
  EXPECT_TRUE(phonetic.whole);
  EXPECT_EQ(phonetic.text, "abc");
  const Reading both = readOne(u16(1) + u8(biff::kRich | biff::kPhonetic | biff::kWide) + u16(2) + u32(3) +
                               u16(0xD55C) + runs + "123");
  EXPECT_TRUE(both.whole);
  EXPECT_EQ(both.text, "한");
}

TEST(TextReader, PassingOverATextReadsNoneOfIt) {
  const std::string stream = record(biff::kSst, narrow("abc") + wide(u"한글") + narrow("z"));
  files::RecordReader record(stream);
  ASSERT_TRUE(record.next());
  files::TextReader reader(record, 0);
  std::string text;
  EXPECT_TRUE(reader.text(nullptr));
  EXPECT_TRUE(reader.text(nullptr));
  EXPECT_TRUE(reader.text(&text));
  EXPECT_EQ(text, "z");
}

// Splits "abc" between its characters at each place; the second part may change its width.
TEST(TextReader, ReadsOnAtEveryCharacterInEitherWidth) {
  for (std::size_t split = 0; split < 3; ++split) {
    const std::string text = "abc";
    const std::string head = u16(3) + u8(0) + text.substr(0, split);
    std::string wideTail;
    for (const char letter : text.substr(split)) wideTail += letter + u8(0);
    for (const std::string& tail : {u8(0) + text.substr(split), u8(biff::kWide) + wideTail}) {
      const Reading reading =
          readThenZ(record(biff::kSst, head) + record(biff::kContinue, tail + narrow("z")));
      EXPECT_TRUE(reading.whole) << split;
      EXPECT_EQ(reading.text, "abc") << split;
    }
  }
}

TEST(TextReader, PairOfUnitsMayStandInTwoRecords) {
  const Reading reading = readThenZ(record(biff::kSst, u16(2) + u8(biff::kWide) + u16(0xD83D)) +
                                    record(biff::kContinue, u8(biff::kWide) + u16(0xDE00) + narrow("z")));
  EXPECT_TRUE(reading.whole);
  EXPECT_EQ(reading.text, "\xF0\x9F\x98\x80");
}

TEST(TextReader, TextThatEndsWithItsRecordLeavesNoFlagForTheNext) {
  const Reading reading = readThenZ(record(biff::kSst, narrow("abc")) + record(biff::kContinue, narrow("z")));
  EXPECT_TRUE(reading.whole);
  EXPECT_EQ(reading.text, "abc");
}

// Only a split among the characters brings a flag byte; every other one just goes on.
TEST(TextReader, ReadsOnAtEveryByteAroundTheCharacters) {
  const std::string text =
      u16(2) + u8(biff::kRich | biff::kPhonetic) + u16(1) + u32(3) + "ab" + "RUNS" + "phn";
  const std::size_t characters = 9;
  for (std::size_t split = 0; split <= text.size(); ++split) {
    const bool inside = split == characters || split == characters + 1;
    const std::string tail = (inside ? u8(0) : "") + text.substr(split) + narrow("z");
    const Reading reading =
        readThenZ(record(biff::kSst, text.substr(0, split)) + record(biff::kContinue, tail));
    EXPECT_TRUE(reading.whole) << split;
    EXPECT_EQ(reading.text, "ab") << split;
  }
}

TEST(TextReader, ReadsOnThroughManyRecordsAndEmptyOnes) {
  std::string stream = record(biff::kSst, u16(4) + u8(0));
  for (const char letter : {'a', 'b', 'c', 'd'}) {
    stream += record(biff::kContinue, "") + record(biff::kContinue, u8(0)) +
              record(biff::kContinue, u8(0) + std::string(1, letter));
  }
  const Reading reading = readThenZ(stream + record(biff::kContinue, narrow("z")));
  EXPECT_TRUE(reading.whole);
  EXPECT_EQ(reading.text, "abcd");
}

TEST(TextReader, TextThatEndsTooSoonIsRefused) {
  const std::string text =
      u16(2) + u8(biff::kRich | biff::kPhonetic) + u16(1) + u32(3) + "ab" + "RUNS" + "phn";
  for (std::size_t length = 0; length < text.size(); ++length) {
    const std::string head = text.substr(0, length);
    EXPECT_FALSE(readThenZ(record(biff::kSst, head)).whole);
    EXPECT_FALSE(readThenZ(record(biff::kSst, head) + record(biff::kEof, narrow("z"))).whole);
    EXPECT_FALSE(readThenZ(record(biff::kSst, head) + record(biff::kContinue, "")).whole);
  }
}

TEST(TextReader, HalfAWideCharacterAtARecordsEndIsRefused) {
  EXPECT_FALSE(readThenZ(record(biff::kSst, u16(1) + u8(biff::kWide) + u8('a')) +
                         record(biff::kContinue, u8(0) + u8(0) + narrow("z")))
                   .whole);
}

}  // namespace
}  // namespace vireon::tests
