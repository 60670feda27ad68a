#include "protocol/reply_text.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/form/expect_fault.h"

namespace vireon::protocol {
namespace {

using form::FaultKind;
using tests::expectFault;

struct NumberCase {
  const char* text;
  int value;
};

TEST(Slice, CountsCharactersFromOneAndMissesWhatLiesPastTheEnd) {
  struct SliceCase {
    const char* item;
    std::size_t first;
    std::size_t last;
    const char* text;
  };
  const SliceCase cases[] = {{"vda:74", 1, 3, "vda"}, {"vda:74", 5, 6, "74"}, {"vda:7", 5, 6, "7"},
                             {"vda:", 5, 6, ""},      {"vda", 5, 6, ""},      {"", 1, 3, ""},
                             {"vd", 1, 3, "vd"},      {"abc", 3, 3, "c"},     {"abc", 4, 9, ""}};
  for (const SliceCase& expected : cases) {
    EXPECT_EQ(slice(expected.item, expected.first, expected.last), expected.text) << expected.item;
  }
}

TEST(HexValue, TakesOneOrTwoDigitsOfEitherCase) {
  const NumberCase cases[] = {{"0", 0},   {"9", 9},   {"A", 10},   {"f", 15},   {"00", 0},
                              {"0F", 15}, {"10", 16}, {"7f", 127}, {"80", 128}, {"fF", 255}};
  for (const NumberCase& expected : cases) {
    EXPECT_EQ(hexValue(expected.text), expected.value) << expected.text;
  }
}

TEST(HexValue, FaultsOnAnythingElse) {
  for (const char* text : {"", " ", "G", "g0", "0G", "-1", "+1", " 1", "1 ", "0x", "100", "FFF", "\xE9"}) {
    SCOPED_TRACE(text);
    expectFault(FaultKind::kConversion, [&] { hexValue(text); });
  }
}

TEST(HexValue, FaultsOnAZeroCharacter) {
  expectFault(FaultKind::kConversion, [] { hexValue(std::string_view("1\0", 2)); });
}

TEST(DecimalValue, TakesASignAndBlanksAround) {
  const NumberCase cases[] = {{"0", 0},         {"007", 7},         {"119", 119}, {" 12", 12},
                              {"12 ", 12},      {"  3  ", 3},       {"+4", 4},    {"-4", -4},
                              {"32767", 32767}, {"-32768", -32768}, {" -5 ", -5}};
  for (const NumberCase& expected : cases) {
    EXPECT_EQ(decimalValue(expected.text), expected.value) << expected.text;
  }
}

TEST(DecimalValue, FaultsOnAnythingElse) {
  for (const char* text : {"", "   ", "A", "1A", "A1", "1 2", "-", "+", "+-5", "-+5", "--5", "++5", "1.5",
                           "0x1", "32768", "-32769", "99999999999999999999"}) {
    SCOPED_TRACE(text);
    expectFault(FaultKind::kConversion, [&] { decimalValue(text); });
  }
}

TEST(LeadingNumber, IsThatAtTheTextsStartAndZeroWhereThereIsNone) {
  const NumberCase cases[] = {{"", 0},      {"x", 0},    {"12", 12},
                              {" 12 ", 12}, {"+12", 12}, {"-7", -7},
                              {"12mV", 12}, {"1.5", 1},  {"2147483647", 2147483647},
                              {"-", 0}};
  for (const NumberCase& expected : cases) {
    EXPECT_EQ(leadingNumber(expected.text), expected.value) << expected.text;
  }
}

TEST(LeadingNumber, OutOfRangeIsTheNearestThatThereIs) {
  EXPECT_EQ(leadingNumber("2147483648"), std::numeric_limits<int>::max());
  EXPECT_EQ(leadingNumber("+99999999999x"), std::numeric_limits<int>::max());
  EXPECT_EQ(leadingNumber("-2147483649"), std::numeric_limits<int>::min());
}

TEST(NumberText, IsWithoutBlanksAtItsEndsAndWithoutAPlusSign) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},       {"  ", ""}, {" 0.5 ", "0.5"}, {"+0.5", "0.5"}, {" +1", "1"}, {"-1", "-1"},
      {"+-1", "+-1"}, {"+", "+"}, {"++1", "+1"},    {"+ 1", " 1"},   {"1+", "1+"}};
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(numberText(text), expected) << text;
  }
}

TEST(Trimmed, CutsBlanksAtBothEndsAlone) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""}, {"   ", ""}, {"a", "a"}, {"  a b  ", "a b"}, {"a ", "a"}, {" a", "a"}, {"\ta\t", "\ta\t"}};
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(trimmed(text), expected);
  }
}

}  // namespace
}  // namespace vireon::protocol
