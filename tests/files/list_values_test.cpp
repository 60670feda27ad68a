#include "files/list_values.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace vireon::files {
namespace {

using Fields = std::vector<std::string>;

Fields fieldsOf(std::string_view file) {
  ListReader reader(file);
  Fields fields;
  while (const auto field = reader.field()) {
    fields.emplace_back(*field);
  }
  return fields;
}

Fields lineFieldsOf(std::string_view file) {
  ListReader reader(file);
  Fields fields;
  while (const auto field = reader.lineField()) {
    fields.emplace_back(*field);
  }
  return fields;
}

TEST(ListNumber, HasABlankOrAMinusSignBeforeAndABlankBehind) {
  EXPECT_EQ(listNumber(65), " 65 ");
  EXPECT_EQ(listNumber(0), " 0 ");
  EXPECT_EQ(listNumber(-0.0), " 0 ");
  EXPECT_EQ(listNumber(-12), "-12 ");
}

TEST(ListNumber, IsTheShortestFormWithAPoint) {
  EXPECT_EQ(listNumber(0.1), " 0.1 ");
  EXPECT_EQ(listNumber(-2.5), "-2.5 ");
  EXPECT_EQ(listNumber(100000), " 100000 ");
  EXPECT_EQ(listNumber(1.5e20), " 1.5E+20 ");
  EXPECT_EQ(listNumber(-1.5e-7), "-1.5E-07 ");
}

TEST(ListNumber, ReadsBackAsTheSameNumber) {
  for (const double value : {0.0, 255.0, -1.0, 0.1, 1.0 / 3, 12345678.9, 1e15, 1e-5, 2.5e-300, 1.7e308,
                             std::numeric_limits<double>::denorm_min()}) {
    const std::string text = listNumber(value);
    EXPECT_EQ(fieldsOf(text).size(), 1U);
    EXPECT_EQ(numberOfField(fieldsOf(text)[0]), value) << text;
  }
}

TEST(ListCaption, StandsAsItIs) {
  EXPECT_EQ(listCaption("+100mV, \"x\" "), "+100mV, \"x\" ");
}

TEST(ListCaption, CannotBreakItsLine) {
  EXPECT_EQ(listCaption("20\r\nSec\x1A!\t"), "20  Sec ! ");
}

TEST(ListField, EndsAtACommaOrAtTheLinesEnd) {
  EXPECT_EQ(fieldsOf("1,2\r\n3\r\n"), (Fields{"1", "2", "3"}));
}

TEST(ListField, LosesTheBlanksBeforeItAndKeepsThoseBehind) {
  EXPECT_EQ(fieldsOf("  65 \r\n \t7,  8 9 \r\n"), (Fields{"65 ", "7", "8 9 "}));
}

TEST(ListField, LinesEndWithLineFeedOrCarriageReturnToo) {
  EXPECT_EQ(fieldsOf("1\n2\r3\r\n4"), (Fields{"1", "2", "3", "4"}));
}

TEST(ListField, AnEmptyLineIsAnEmptyField) {
  EXPECT_EQ(fieldsOf("1\r\n\r\n  \r\n2\r\n"), (Fields{"1", "", "", "2"}));
}

TEST(ListField, TheFileEndsAtItsEndOfFileMark) {
  EXPECT_EQ(fieldsOf("1\r\n2\r\n\x1A"), (Fields{"1", "2"}));
  EXPECT_EQ(fieldsOf("1\r\n2\x1A\r\n3\r\n"), (Fields{"1", "2"}));
  EXPECT_EQ(fieldsOf("\x1A"), Fields{});
}

TEST(ListField, AQuotedFieldEndsAtTheNextQuote) {
  EXPECT_EQ(fieldsOf("\"1,5 V\" , \" x\"\r\n2\r\n"), (Fields{"1,5 V", " x", "2"}));
  EXPECT_EQ(fieldsOf("\"open\r\n2\r\n"), (Fields{"open", "2"}));
  EXPECT_EQ(fieldsOf("\"\"\r\n2"), (Fields{"", "2"}));
}

TEST(ListField, NothingIsReadOfAnEmptyFile) {
  EXPECT_EQ(fieldsOf(""), Fields{});
}

TEST(ListLineField, IsCutAtTheCommaAndTheNextStandsInTheNextLine) {
  EXPECT_EQ(lineFieldsOf("1,5Sec\r\n+100mV\r\na,b,c\r\nd"), (Fields{"1", "+100mV", "a", "d"}));
}

TEST(ListLine, IsTheOneOfTheFieldReadLast) {
  ListReader reader("1,2\r\n\r\n3");
  EXPECT_EQ(reader.line(), 0);
  std::vector<int> lines;
  while (reader.field()) {
    lines.push_back(reader.line());
  }
  EXPECT_EQ(lines, (std::vector<int>{1, 1, 2, 3}));
}

TEST(NumberOfField, TakesTrailingBlanksSignsAndExponents) {
  EXPECT_EQ(numberOfField("65 \t"), 65.0);
  EXPECT_EQ(numberOfField("+7"), 7.0);
  EXPECT_EQ(numberOfField("-7.25"), -7.25);
  EXPECT_EQ(numberOfField(".5"), 0.5);
  EXPECT_EQ(numberOfField("1.5E+02"), 150.0);
}

TEST(NumberOfField, TakesHexadecimalText) {
  EXPECT_EQ(numberOfField("&H3A"), 58.0);
  EXPECT_EQ(numberOfField("&hff "), 255.0);
  EXPECT_EQ(numberOfField("&H0"), 0.0);
}

TEST(NumberOfField, IsNoneForOtherTexts) {
  for (const char* text :
       {"",    " ",    "x",  "1x",    "1 2",  "--1",  "+-1",   "-",     "+",     "inf", "-inf",
        "nan", "0x10", "&H", "&H123", "&HG1", "&H-1", "1e999", "20Sec", "1.2.3", "\xC4"}) {
    EXPECT_EQ(numberOfField(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace vireon::files
