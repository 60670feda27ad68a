#include "app/ini_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vireon::tests {
namespace {

using app::iniValue;
using app::withIniValue;
using std::string_literals::operator""s;

struct Reading {
  const char* fact;
  std::string text;
  std::string value;  // of section "ComPort", key "ComPort"
};

void PrintTo(const Reading& reading, std::ostream* out) {
  *out << reading.fact;
}

class IniReading : public testing::TestWithParam<Reading> {};

TEST_P(IniReading, FindsTheValue) {
  EXPECT_EQ(iniValue(GetParam().text, "ComPort", "ComPort"), GetParam().value);
}

const std::string kMark = "\xEF\xBB\xBF";

INSTANTIATE_TEST_SUITE_P(
    Texts, IniReading,
    testing::ValuesIn(std::vector<Reading>{
        {"CrLf", "[ComPort]\r\nComPort=1\r\n", "1"},
        {"Lf", "[ComPort]\nComPort=1\n", "1"},
        {"NoFinalLineEnd", "[ComPort]\r\nComPort=1", "1"},
        {"LoneCrAtTheEnd", "[ComPort]\r\nComPort=1\r", "1"},
        {"LoneCrBetween", "[ComPort]\rComPort=1\rBaud=2\r", "1"},
        {"NamesWithoutCase", "[cOMpORT]\r\nCOMport=1\r\n", "1"},
        {"BlanksAroundEverything", " \t[ \tComPort\t ] \r\n\t ComPort \t=\t 1 \t\r\n", "1"},
        {"BlanksInsideTheValueStay", "[ComPort]\nComPort=a \tb\n", "a \tb"},
        {"TextBehindTheBracketIsIgnored", "[ComPort] ; x=[y]\nComPort=1\n", "1"},
        {"CommentsAreNoKeys", "[ComPort]\n;ComPort=1\n \t;ComPort=2\nComPort=3\n", "3"},
        {"CommentsAreNoSections", ";[ComPort]\nComPort=1\n", ""},
        {"TextBehindTheValueBelongsToIt", "[ComPort]\nComPort=1 ;2\n", "1 ;2"},
        {"OtherKeys", "[ComPort]\nComPor=0\nComPord=3\nComPort1=2\nComPort=1\n", "1"},
        {"OtherSections",
         "[ComPor]\nComPort=0\n[ComPord]\nComPort=3\n[ComPort]\nComPort=1\n[BaudRate]\nComPort=2\n", "1"},
        {"KeyOfAnotherSection", "[ComPort]\n[BaudRate]\nComPort=2\n", ""},
        {"FirstKeyCounts", "[ComPort]\nComPort=1\nComPort=2\n", "1"},
        {"FirstSectionCounts", "[ComPort]\nComPort=1\n[ComPort]\nComPort=2\n", "1"},
        {"LaterSectionOfTheName", "[ComPort]\nA=1\n[B]\n[comport]\nComPort=2\n", "2"},
        {"DoubleQuotes", "[ComPort]\nComPort= \" 1 \" \n", " 1 "},
        {"SingleQuotes", "[ComPort]\nComPort=' 1 '\n", " 1 "},
        {"OnePairOfQuotesGoes", "[ComPort]\nComPort=\"'1'\"\n", "'1'"},
        {"QuotesThatDifferStay", "[ComPort]\nComPort=\"1'\n", "\"1'"},
        {"OneQuoteStays", "[ComPort]\nComPort=\"\n", "\""},
        {"EmptyQuotes", "[ComPort]\nComPort=\"\"\n", ""},
        {"EqualsInTheValue", "[ComPort]\nComPort==1=\n", "=1="},
        {"EmptyValue", "[ComPort]\nComPort=\nComPort=2\n", ""},
        {"ByteOrderMark", kMark + "[ComPort]\nComPort=1\n", "1"},
        {"HighBytesPassThrough", "[ComPort]\nComPort=\x80\xB5s\xFF\n", "\x80\xB5s\xFF"},
        {"HighBytesInNamesAreCompared", "[ComPort\xC4]\nComPort=1\n", ""},
        {"ValueEndsAtAZeroByte", "[ComPort]\nComPort=1\0002\n"s, "1"},
        {"ZeroByteInAnotherLine", "[A]\n\0\n[ComPort]\nB=\0\nComPort=1\n"s, "1"},
        {"KeyBeforeAnySection", "ComPort=1\n", ""},
        {"Empty", "", ""},
        {"MarkAlone", kMark, ""},
        {"BracketWithoutItsEnd", "[ComPort\nComPort=1\n", ""},
        {"BracketWithoutItsEndEndsNoSection", "[ComPort]\n[\n[x\nComPort=1\n", "1"},
        {"EqualsWithoutKey", "[ComPort]\n=\n = 5\nComPort=1\n", "1"},
        {"KeyWithoutEquals", "[ComPort]\nComPort\nComPort=1\n", "1"},
        {"Utf16LittleEnd", "\xFF\xFE[ComPort]\nComPort=1\n", ""},
        {"Utf16BigEnd", "\xFE\xFF[ComPort]\nComPort=1\n", ""},
        {"LongestValue", "[ComPort]\nComPort=" + std::string(1023, 'x') + "\n", std::string(1023, 'x')},
        {"LongerValueIsCut", "[ComPort]\nComPort=" + std::string(1024, 'x') + "\n", std::string(1023, 'x')},
    }),
    [](const auto& row) { return row.param.fact; });

TEST(IniReadingNames, OfCommentsAreNoKeys) {
  EXPECT_EQ(iniValue("[A]\n;A=1\n", "A", ";A"), "");
}

TEST(IniReadingNames, AreTakenWithoutBlanksAndNeverEmpty) {
  const std::string text = "[]\n=0\nA=1\n[A]\nA=2\n=3\n";

  EXPECT_EQ(iniValue(text, " a\t", "\tA "), "2");
  EXPECT_EQ(iniValue(text, "", "A"), "");
  EXPECT_EQ(iniValue(text, "A", ""), "");
}

struct Writing {
  const char* fact;
  std::string before;
  std::string after;  // with section "Tabs", key "Tabs" set to "2"
};

void PrintTo(const Writing& writing, std::ostream* out) {
  *out << writing.fact;
}

class IniWriting : public testing::TestWithParam<Writing> {};

TEST_P(IniWriting, ChangesThatLineAlone) {
  const auto text = withIniValue(GetParam().before, "Tabs", "Tabs", "2");

  ASSERT_TRUE(text);
  EXPECT_EQ(*text, GetParam().after);
  EXPECT_EQ(iniValue(*text, "Tabs", "Tabs"), "2");
}

INSTANTIATE_TEST_SUITE_P(
    Texts, IniWriting,
    testing::ValuesIn(std::vector<Writing>{
        {"NewText", "", "[Tabs]\r\nTabs=2\r\n"},
        {"MarkAlone", kMark, kMark + "[Tabs]\r\nTabs=2\r\n"},
        {"NewSection", "[A]\r\nA=1\r\n", "[A]\r\nA=1\r\n[Tabs]\r\nTabs=2\r\n"},
        {"NewSectionInLfText", "[A]\nA=1\n", "[A]\nA=1\n[Tabs]\nTabs=2\n"},
        {"NewSectionAfterAnOpenLine", "[A]\nA=1", "[A]\nA=1\n[Tabs]\nTabs=2\n"},
        {"NewSectionAfterOneOpenLine", "[A]", "[A]\r\n[Tabs]\r\nTabs=2\r\n"},
        {"NewSectionAfterALoneCr", "[A]\r\nA=1\r", "[A]\r\nA=1\r[Tabs]\r\nTabs=2\r\n"},
        {"NewSectionAfterABlankLine", "[A]\n\n", "[A]\n\n[Tabs]\nTabs=2\n"},
        {"FirstLineEndCounts", "\n[A]\r\n", "\n[A]\r\n[Tabs]\nTabs=2\n"},
        {"KeyBeforeAnySectionIsAnother", "Tabs=1\n", "Tabs=1\n[Tabs]\nTabs=2\n"},
        {"CommentIsNoKey", "[Tabs]\n;Tabs=1\n", "[Tabs]\n;Tabs=1\nTabs=2\n"},
        {"NewKey", "[tabs]\nA=1\n[B]\n", "[tabs]\nA=1\nTabs=2\n[B]\n"},
        {"NewKeyBeforeClosingBlankLines", "[Tabs]\n\nA=1\n \t\n\n[B]\n",
         "[Tabs]\n\nA=1\nTabs=2\n \t\n\n[B]\n"},
        {"NewKeyInEmptySection", "[Tabs]\r\n\r\n[B]", "[Tabs]\r\nTabs=2\r\n\r\n[B]"},
        {"NewKeyAfterAnOpenLine", "[Tabs]\r\nA=1", "[Tabs]\r\nA=1\r\nTabs=2\r\n"},
        {"NewKeyInTheFirstSectionOfTheName", "[Tabs]\n[B]\n[Tabs]\nA=1\n",
         "[Tabs]\nTabs=2\n[B]\n[Tabs]\nA=1\n"},
        {"OldKeyInALaterSection", "[Tabs]\n[Tabs]\nTabs=1\n", "[Tabs]\n[Tabs]\nTabs=2\n"},
        {"OldKeyKeepsItsSpelling", "[TABS]\r\n tABS\t= 1 \r\n", "[TABS]\r\n tABS=2\r\n"},
        {"FirstOfTwoKeys", "[Tabs]\nTabs=1\nTabs=1\n", "[Tabs]\nTabs=2\nTabs=1\n"},
        {"OldKeyInAnOpenLine", "[Tabs]\r\nTabs=1", "[Tabs]\r\nTabs=2"},
        {"OldKeyWithLoneCr", "[Tabs]\r\nTabs=1\r", "[Tabs]\r\nTabs=2\r"},
        {"OldKeyWithoutValue", "[Tabs]\r\nTabs=\r\nA=1\r\n", "[Tabs]\r\nTabs=2\r\nA=1\r\n"},
        {"EveryOtherByteStays", kMark + "\xFF\0;\r\r\n[ Tabs ]x\nTabs=\0001\n\x80=\t\r"s,
         kMark + "\xFF\0;\r\r\n[ Tabs ]x\nTabs=2\n\x80=\t\r"s},
        {"SameValueInOtherClothes", "[Tabs]\nTabs = '2' \n", "[Tabs]\nTabs = '2' \n"},
        {"SameValueBeforeAZeroByte", "[Tabs]\nTabs=2\0x\n"s, "[Tabs]\nTabs=2\0x\n"s},
    }),
    [](const auto& row) { return row.param.fact; });

TEST(IniWritingValues, AreCutAtTheirFirstLineEndOrZeroByte) {
  for (const std::string& value : {"ab\r\nA=2"s, "ab\rc"s, "ab\nc"s, "ab\0c"s}) {
    EXPECT_EQ(withIniValue("[A]\nA=1\n", "A", "A", value), "[A]\nA=ab\n");
  }
}

TEST(IniWritingValues, AreWrittenAsTheyAre) {
  EXPECT_EQ(withIniValue("", "A", "A", " \"x\" "), "[A]\r\nA= \"x\" \r\n");
  EXPECT_EQ(withIniValue("[A]\nA= \"x\" \n", "A", "A", " \"x\" "), "[A]\nA= \"x\" \n");
  EXPECT_EQ(withIniValue("", "A", "A", ""), "[A]\r\nA=\r\n");
  EXPECT_EQ(withIniValue("[A]\nA=1\n", "A", "A", ""), "[A]\nA=\n");
}

TEST(IniWritingValues, AreComparedWholeWhereTheyAreLongerThanAReadingGives) {
  const std::string longest(app::kLongestIniValue, 'x');

  EXPECT_EQ(withIniValue("[A]\nA=" + longest + "y\n", "A", "A", longest), "[A]\nA=" + longest + "\n");
}

TEST(IniWritingNames, ThatNoLineCanHoldGiveNone) {
  for (const std::string& section : {""s, " "s, "a]"s, "a\n"s, "a\rb"s, "a\0"s}) {
    EXPECT_FALSE(withIniValue("", section, "A", "1")) << section;
  }
  for (const std::string& key : {""s, "\t"s, "a=b"s, "a\n"s, "a\rb"s, "a\0"s, ";a"s, "[a"s}) {
    EXPECT_FALSE(withIniValue("", "A", key, "1")) << key;
  }
  EXPECT_EQ(withIniValue("", " A ", "\tb ", "1"), "[A]\r\nb=1\r\n");
}

TEST(IniWritingNames, InUtf16GiveNone) {
  EXPECT_FALSE(withIniValue("\xFF\xFE[\0A\0]\0"s, "A", "A", "1"));
  EXPECT_FALSE(withIniValue("\xFE\xFF\0[\0A\0]"s, "A", "A", "1"));
}

TEST(IniRoundTrip, EverySettingReadsBackAndTheOthersStay) {
  const std::vector<std::string> names{"Caption", "System ID", "ProductId", "Tabs", "ComPort", "BaudRate"};
  const std::vector<std::string> values{"", "0", "-8191", "K7310", "9600", "Vireon \xB5 [1] ;x = y", "a  b"};
  for (const std::string& start : {""s, kMark, "; mine\n[tabs]\ntabs=7\n\n[Mine]\nx=y"s}) {
    std::string text = start;
    std::vector<std::string> expected(names.size());
    for (std::size_t turn = 0; turn < names.size() * values.size(); ++turn) {
      const std::size_t index = turn % names.size();
      expected[index] = values[turn % values.size()];
      text = withIniValue(text, names[index], names[index], expected[index]).value();
      for (std::size_t other = 0; other <= std::min(turn, names.size() - 1); ++other) {
        ASSERT_EQ(iniValue(text, names[other], names[other]), expected[other]) << text;
      }
    }
    EXPECT_EQ(iniValue(text, "Mine", "x"), iniValue(start, "Mine", "x"));
  }
}

// A quadratic search over these would run for hours and so into the test's time-out.
TEST(IniJunk, OfTenMegabytesIsKeptByteForByte) {
  constexpr std::size_t kSize = 10'000'000;
  std::string noise(kSize, '\0');
  unsigned state = 1;
  for (char& byte : noise) {
    state = state * 1664525U + 1013904223U;
    byte = static_cast<char>(state >> 24U);
  }
  std::string brackets;
  while (brackets.size() < kSize) brackets += "[x]\n[\n=\n";
  for (const std::string& junk :
       {std::string(kSize, 'x'), std::string(kSize, '\n'), std::string(kSize, '\r'), std::string(kSize, '['),
        std::string(kSize, ' '), std::string(kSize, '='), noise, brackets}) {
    ASSERT_EQ(iniValue(junk, "Tabs", "Tabs"), "");
    const std::string text = withIniValue(junk, "Tabs", "Tabs", "2").value();
    ASSERT_TRUE(text.starts_with(junk));
    ASSERT_LE(text.size(), junk.size() + 20);
    ASSERT_EQ(iniValue(text, "Tabs", "Tabs"), "2");
    const std::string again = withIniValue("[Tabs]\nTabs=1\n" + junk, "Tabs", "Tabs", "2").value();
    ASSERT_TRUE(again.ends_with(junk));
  }
}

}  // namespace
}  // namespace vireon::tests
