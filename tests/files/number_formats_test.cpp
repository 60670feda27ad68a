#include "files/number_formats.h"

#include <gtest/gtest.h>

namespace vireon::tests {
namespace {

using files::builtInNumberKind;
using files::NumberKind;
using files::numberKindOf;

TEST(NumberFormats, CodesOfNumbers) {
  for (const char* code :
       {"",         "General",  "GENERAL",  "0",         "00000",     "0.00", "#,##0.00;[Red]-#,##0.00",
        "0.00E+00", "# ?/?",    "0%",       "\"day\" 0", "0\\d",      "0_d",  "*d0",
        "[Red]0",   "[$-409]0", "[>=100]0", "@",         "\"unended", "[h",   "0;yyyy",
        "[]0",      "\\",       "[hs]0"}) {
    EXPECT_EQ(numberKindOf(code), NumberKind::kPlain) << code;
  }
}

TEST(NumberFormats, CodesOfDates) {
  for (const char* code :
       {"yyyy-mm-dd", "d/m/yy", "mmm", "DD.MM.YYYY", "[$-412]yyyy\"년\" m\"월\"", "mmm-yy;@"}) {
    EXPECT_EQ(numberKindOf(code), NumberKind::kDate) << code;
  }
}

TEST(NumberFormats, CodesOfTimes) {
  for (const char* code :
       {"hh:mm:ss", "h:mm AM/PM", "mm:ss.0", "H\"시\" MM\"분\"", "A/P h", "[$-F400]h:mm:ss"}) {
    EXPECT_EQ(numberKindOf(code), NumberKind::kTime) << code;
  }
}

TEST(NumberFormats, CodesOfBoth) {
  EXPECT_EQ(numberKindOf("yyyy-mm-dd hh:mm"), NumberKind::kDateAndTime);
  EXPECT_EQ(numberKindOf("d\\ s"), NumberKind::kDateAndTime);
}

TEST(NumberFormats, CodesThatCountHoursOn) {
  for (const char* code : {"[h]:mm:ss", "[HH]:mm", "[mm]:ss", "[s]", "[h][Red]", "[Red][h]"}) {
    EXPECT_EQ(numberKindOf(code), NumberKind::kElapsed) << code;
  }
}

TEST(NumberFormats, NumbersOfFormatsWithoutACode) {
  for (const int format : {0, 1, 2, 4, 9, 11, 13, 23, 26, 37, 44, 48, 49, 59, 164, 65535}) {
    EXPECT_EQ(builtInNumberKind(static_cast<std::uint16_t>(format)), NumberKind::kPlain) << format;
  }
  for (const int format : {14, 15, 16, 17, 27, 31, 34, 36, 50, 58}) {
    EXPECT_EQ(builtInNumberKind(static_cast<std::uint16_t>(format)), NumberKind::kDate) << format;
  }
  for (const int format : {18, 19, 20, 21, 32, 33, 45, 47}) {
    EXPECT_EQ(builtInNumberKind(static_cast<std::uint16_t>(format)), NumberKind::kTime) << format;
  }
  EXPECT_EQ(builtInNumberKind(22), NumberKind::kDateAndTime);
  EXPECT_EQ(builtInNumberKind(46), NumberKind::kElapsed);
}

}  // namespace
}  // namespace vireon::tests
