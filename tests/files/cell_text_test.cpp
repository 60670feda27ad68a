#include "files/cell_text.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <string_view>

#include "tests/fakes/comma_locale.h"

namespace vireon::tests {
namespace {

using files::CellKind;
using files::CellValue;
using files::DateSystem;
using files::NumberKind;

CellValue number(double value, NumberKind kind = NumberKind::kPlain) {
  return {CellKind::kNumber, kind, {}, value, false};
}

CellValue text(std::string_view value) {
  return {CellKind::kText, NumberKind::kPlain, value, 0, false};
}

CellValue boolean(bool value) {
  return {CellKind::kBoolean, NumberKind::kPlain, {}, 0, value};
}

CellValue error(std::string_view name) {
  return {CellKind::kError, NumberKind::kPlain, name, 0, false};
}

std::string recordNumber(const CellValue& value) {
  return files::recordNumberText(value, DateSystem::k1900);
}

std::string timeOfDay(const CellValue& value) {
  return files::timeOfDayText(value, DateSystem::k1900);
}

std::string plain(const CellValue& value, DateSystem dates = DateSystem::k1900) {
  return files::plainText(value, dates);
}

TEST(CellText, RecordNumberOf12Reads00012) {
  EXPECT_EQ(recordNumber(number(12)), "00012");
}

TEST(CellText, RecordNumbersHaveFiveDigitsAtLeast) {
  EXPECT_EQ(recordNumber(number(0)), "00000");
  EXPECT_EQ(recordNumber(number(-0.0)), "00000");
  EXPECT_EQ(recordNumber(number(99999)), "99999");
  EXPECT_EQ(recordNumber(number(100000)), "100000");
  EXPECT_EQ(recordNumber(number(-12)), "-00012");
  EXPECT_EQ(recordNumber(number(1e20)), "100000000000000000000");
  EXPECT_EQ(recordNumber(number(1e308)).size(), 309U);
}

TEST(CellText, RecordNumbersRoundHalvesAwayFromZero) {
  EXPECT_EQ(recordNumber(number(0.5)), "00001");
  EXPECT_EQ(recordNumber(number(1.5)), "00002");
  EXPECT_EQ(recordNumber(number(2.5)), "00003");
  EXPECT_EQ(recordNumber(number(12.49)), "00012");
  EXPECT_EQ(recordNumber(number(-2.5)), "-00003");
  EXPECT_EQ(recordNumber(number(-0.4)), "00000");
}

TEST(CellText, RecordNumberThatIsATextStays) {
  EXPECT_EQ(recordNumber(text("12")), "12");
  EXPECT_EQ(recordNumber(text("R/No")), "R/No");
}

TEST(CellText, TimeOfANumberIsItsPartOfTheDay) {
  EXPECT_EQ(timeOfDay(number(0)), "00:00:00");
  EXPECT_EQ(timeOfDay(number(0.5)), "12:00:00");
  EXPECT_EQ(timeOfDay(number(45000.75)), "18:00:00");
  EXPECT_EQ(timeOfDay(number(-0.25)), "06:00:00");
  EXPECT_EQ(timeOfDay(number(7)), "00:00:00");
}

TEST(CellText, TimeRoundsToTheNearestSecondAndPastMidnight) {
  EXPECT_EQ(timeOfDay(number((3661 + 0.49) / 86400)), "01:01:01");
  EXPECT_EQ(timeOfDay(number((3661 + 0.51) / 86400)), "01:01:02");
  EXPECT_EQ(timeOfDay(number(86399.6 / 86400)), "00:00:00");
}

TEST(CellText, EverySecondOfTheDaySurvivesAsANumber) {
  for (int second = 0; second < 86400; ++second) {
    const std::string expected = timeOfDay(number(second / 86400.0));
    ASSERT_EQ(std::stoi(expected.substr(0, 2)) * 3600 + std::stoi(expected.substr(3, 2)) * 60 +
                  std::stoi(expected.substr(6, 2)),
              second);
  }
}

TEST(CellText, TimeThatIsATextIsPutIntoTwoDigits) {
  EXPECT_EQ(timeOfDay(text("1:2:3")), "01:02:03");
  EXPECT_EQ(timeOfDay(text("--EOD---")), "--EOD---");
}

TEST(CellText, NumberBeyondTheCalendarIsNoTime) {
  EXPECT_EQ(timeOfDay(number(2958465.5)), "12:00:00");
  EXPECT_EQ(timeOfDay(number(2958466)), "2958466");
  EXPECT_EQ(timeOfDay(number(1e300)), "1E+300");
}

TEST(CellText, NumbersAreAsShortAsTheyCanBe) {
  EXPECT_EQ(plain(number(1.5)), "1.5");
  EXPECT_EQ(plain(number(-0.0)), "0");
  EXPECT_EQ(plain(number(12)), "12");
  EXPECT_EQ(plain(number(0.1 + 0.2)), "0.3");
  EXPECT_EQ(plain(number(-1.234)), "-1.234");
  EXPECT_EQ(plain(number(123456789012345)), "123456789012345");
  EXPECT_EQ(plain(number(1e-5)), "1E-05");
}

TEST(CellText, NumbersHaveFifteenDigitsAndAnExponentWhereMoreWouldBeNeeded) {
  EXPECT_EQ(plain(number(2.50)), "2.5");
  EXPECT_EQ(plain(number(1e14)), "100000000000000");
  EXPECT_EQ(plain(number(1e15)), "1E+15");
  EXPECT_EQ(plain(number(999999999999999.5)), "1E+15");
  EXPECT_EQ(plain(number(1e20)), "1E+20");
  EXPECT_EQ(plain(number(-1.25e100)), "-1.25E+100");
  EXPECT_EQ(plain(number(1234567890123456)), "1.23456789012346E+15");
  EXPECT_EQ(plain(number(0.0001)), "0.0001");
  EXPECT_EQ(plain(number(0.00012345678901234567)), "0.000123456789012346");
}

TEST(CellText, NumbersOfEverySizeAreAsTheLibraryPrintsThem) {
  for (int exponent = -323; exponent <= 308; ++exponent) {
    for (const double factor : {1.0, 1.0 / 3, 1.5, 9.99999999999999944, 1.00000000000000022, -7.25}) {
      const double value = std::pow(10.0, exponent) * factor;
      std::array<char, 40> expected{};
      std::snprintf(expected.data(), expected.size(), "%.15G", value);
      if (std::isfinite(value)) {
        EXPECT_EQ(plain(number(value)), expected.data());
      }
    }
  }
  EXPECT_EQ(plain(number(std::numeric_limits<double>::max())), "1.79769313486232E+308");
}

TEST(CellText, NumbersHaveAPointWhereTheSystemWritesAComma) {
  const CommaLocale locale;
  if (!locale.made()) GTEST_SKIP() << "without localedef";
  std::array<char, 8> local{};
  std::snprintf(local.data(), local.size(), "%.1f", 1.5);
  ASSERT_STREQ(local.data(), "1,5");
  EXPECT_EQ(plain(number(1.5)), "1.5");
  EXPECT_EQ(plain(number(-1.25e20)), "-1.25E+20");
  EXPECT_EQ(plain(number(60.5, NumberKind::kDateAndTime)), "60.5");
  EXPECT_EQ(recordNumber(number(1234567.5)), "1234568");
}

TEST(CellText, BooleansAndErrorsHaveTheirNamesInEveryColumn) {
  for (const auto& format : {recordNumber, timeOfDay}) {
    EXPECT_EQ(format(boolean(true)), "True");
    EXPECT_EQ(format(boolean(false)), "False");
    EXPECT_EQ(format(error("#N/A")), "#N/A");
    EXPECT_EQ(format({}), "");
  }
  EXPECT_EQ(plain(boolean(true)), "True");
  EXPECT_EQ(plain(error("#DIV/0!")), "#DIV/0!");
  EXPECT_EQ(plain({}), "");
}

TEST(CellText, DatesCountFrom1900WithItsExtraDay) {
  EXPECT_EQ(plain(number(1, NumberKind::kDate)), "1900-01-01");
  EXPECT_EQ(plain(number(59, NumberKind::kDate)), "1900-02-28");
  EXPECT_EQ(plain(number(60, NumberKind::kDate)), "60");
  EXPECT_EQ(plain(number(61, NumberKind::kDate)), "1900-03-01");
  EXPECT_EQ(plain(number(45000, NumberKind::kDate)), "2023-03-15");
  EXPECT_EQ(plain(number(2958465, NumberKind::kDate)), "9999-12-31");
}

TEST(CellText, DatesCountFrom1904WhereTheWorkbookSaysSo) {
  EXPECT_EQ(plain(number(0, NumberKind::kDate), DateSystem::k1904), "1904-01-01");
  EXPECT_EQ(plain(number(43538, NumberKind::kDate), DateSystem::k1904), "2023-03-15");
  EXPECT_EQ(plain(number(2957003, NumberKind::kDate), DateSystem::k1904), "9999-12-31");
  EXPECT_EQ(plain(number(2957004, NumberKind::kDate), DateSystem::k1904), "2957004");
}

TEST(CellText, DayThatNoCalendarHasIsANumber) {
  EXPECT_EQ(plain(number(0, NumberKind::kDate)), "0");
  EXPECT_EQ(plain(number(-1, NumberKind::kDate)), "-1");
  EXPECT_EQ(plain(number(2958466, NumberKind::kDate)), "2958466");
  EXPECT_EQ(plain(number(1e300, NumberKind::kDateAndTime)), "1E+300");
}

TEST(CellText, DateAndTimeStandsWithABlankBetween) {
  EXPECT_EQ(plain(number(45000.5, NumberKind::kDateAndTime)), "2023-03-15 12:00:00");
  EXPECT_EQ(plain(number(45000 + 86399.7 / 86400, NumberKind::kDateAndTime)), "2023-03-16 00:00:00");
  EXPECT_EQ(plain(number(0.25, NumberKind::kDateAndTime)), "06:00:00");
}

TEST(CellText, FirstDayOf1904IsADateWithATime) {
  EXPECT_EQ(plain(number(0.25, NumberKind::kDateAndTime), DateSystem::k1904), "1904-01-01 06:00:00");
}

TEST(CellText, TimeOfADayThatNoCalendarHasIsANumber) {
  EXPECT_EQ(plain(number(60.5, NumberKind::kDateAndTime)), "60.5");
}

TEST(CellText, TimesOfFurtherColumns) {
  EXPECT_EQ(plain(number(0.25, NumberKind::kTime)), "06:00:00");
  EXPECT_EQ(plain(number(45000.25, NumberKind::kTime)), "06:00:00");
  EXPECT_EQ(plain(number(0.25, NumberKind::kElapsed)), "06:00:00");
  EXPECT_EQ(plain(number(1.25, NumberKind::kElapsed)), "30:00:00");
  EXPECT_EQ(plain(number(5 + 1.0 / 86400, NumberKind::kElapsed)), "120:00:01");
}

}  // namespace
}  // namespace vireon::tests
