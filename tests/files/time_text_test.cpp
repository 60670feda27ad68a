#include "files/time_text.h"

#include <gtest/gtest.h>

#include <string>

namespace vireon::tests {
namespace {

using files::timeText;

TEST(TimeText, PutsATimeIntoTwoDigitsEach) {
  EXPECT_EQ(timeText("12:34:56"), "12:34:56");
  EXPECT_EQ(timeText("1:02:03"), "01:02:03");
  EXPECT_EQ(timeText("13:5:9"), "13:05:09");
  EXPECT_EQ(timeText("1:02"), "01:02:00");
  EXPECT_EQ(timeText("0:0:0"), "00:00:00");
  EXPECT_EQ(timeText("23:59:59"), "23:59:59");
  EXPECT_EQ(timeText(" \t7:08:09 "), "07:08:09");
}

TEST(TimeText, KnowsBothHalvesOfTheDay) {
  EXPECT_EQ(timeText("1:02:03 PM"), "13:02:03");
  EXPECT_EQ(timeText("1:02:03 am"), "01:02:03");
  EXPECT_EQ(timeText("1:02pm"), "13:02:00");
  EXPECT_EQ(timeText("12:00 AM"), "00:00:00");
  EXPECT_EQ(timeText("12:00 PM"), "12:00:00");
  EXPECT_EQ(timeText("11:59:59 PM"), "23:59:59");
}

TEST(TimeText, LeavesEveryOtherTextAsItIs) {
  for (const std::string text :
       {"",        " ",        ":",         "::",       "--EOD---",   "--EOD--",  "Time",    "12",
        "123456",  "24:00:00", "12:60",     "12:34:60", "1:2:3:4",    "123:4:5",  "12:345",  "12::34",
        ":12:34",  "12:34:",   "12:34:56x", "x12:34",   "12 :34",     "12:34 XM", "12:34 A", "12:34 AMx",
        "0:30 AM", "13:00 PM", "-1:02:03",  "1.5",      "12:34:56.7", "۱۲:۳۴"}) {
    EXPECT_EQ(timeText(text), text);
  }
}

}  // namespace
}  // namespace vireon::tests
