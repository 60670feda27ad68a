#include "files/cell_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "files/time_text.h"

namespace vireon::files {
namespace {

constexpr std::int64_t kSecondsOfDay = 86400;
constexpr double kDaysEnd = 2958466;  // the day after 9999-12-31, counted from 1899-12-30

constexpr int kLargestShort = 99999;  // five digits

// `format` takes one double and prints no decimals, whose point would be the locale's.
std::string printed(const char* format, double number) {
  std::array<char, 400> text{};  // the largest number has 309 digits
  const int length = std::snprintf(text.data(), text.size(), format, number);
  return {text.data(), static_cast<std::size_t>(length)};
}

std::string numberText(double number) {
  std::array<char, 32> text{};
  char* const end = std::to_chars(text.data(), text.data() + text.size(), number == 0 ? 0 : number,
                                  std::chars_format::general, 15)
                        .ptr;
  std::replace(text.data(), end, 'e', 'E');
  return {text.data(), end};
}

bool isDate(double days) {
  return std::fabs(days) < kDaysEnd;
}

// Half a day more or less than none counts as much: the sign is the date's alone.
std::string timeOfDay(double days) {
  const double part = std::fmod(std::fabs(days), 1.0);
  return clockText(static_cast<int>(std::llround(part * kSecondsOfDay) % kSecondsOfDay));
}

// Of a day from 0; empty where there is no such day. The days of 1900 count a 29th of February, and before it
// from 1.
std::string dateText(std::int64_t day, DateSystem dates) {
  using namespace std::chrono;
  sys_days zero = sys_days(year{1904} / January / 1);
  if (dates == DateSystem::k1900) {
    if (day < 1 || day == 60) return {};
    zero = sys_days(year{1899} / December / (day < 60 ? 31 : 30));
  }
  const sys_days date = zero + days(day);
  const year_month_day calendar(date);
  if (calendar.year() > year{9999}) return {};
  std::array<char, 40> text{};
  const int length =
      std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(calendar.year()),
                    static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()));
  return {text.data(), static_cast<std::size_t>(length)};
}

std::string elapsedText(std::int64_t seconds) {
  const std::int64_t hours = seconds / 3600;
  std::string text = clockText(static_cast<int>(seconds % 3600));
  if (hours >= 10) return std::to_string(hours) + text.substr(2);
  text[1] = static_cast<char>('0' + hours);
  return text;
}

std::string dayText(const CellValue& value, DateSystem dates) {
  if (!isDate(value.number) || value.number < 0) return numberText(value.number);
  const auto seconds = static_cast<std::int64_t>(std::llround(value.number * kSecondsOfDay));
  const std::int64_t day = seconds / kSecondsOfDay;
  const std::string time = clockText(static_cast<int>(seconds % kSecondsOfDay));
  if (value.numberKind == NumberKind::kTime) return time;
  if (value.numberKind == NumberKind::kElapsed) return elapsedText(seconds);
  const std::string date = dateText(day, dates);
  if (value.numberKind == NumberKind::kDate) return date.empty() ? numberText(value.number) : date;
  if (day == 0 && dates == DateSystem::k1900) return time;
  return date.empty() ? numberText(value.number) : date + ' ' + time;
}

}  // namespace

std::string recordNumberText(const CellValue& value, DateSystem dates) {
  if (value.kind != CellKind::kNumber) return plainText(value, dates);
  const double rounded = std::round(value.number);
  if (rounded >= 0 && rounded <= kLargestShort) {
    return std::to_string(kLargestShort + 1 + static_cast<int>(rounded)).substr(1);
  }
  return printed(rounded < 0 ? "%06.0f" : "%05.0f", rounded);
}

std::string timeOfDayText(const CellValue& value, DateSystem dates) {
  if (value.kind == CellKind::kText) return timeText(value.text);
  if (value.kind == CellKind::kNumber && isDate(value.number)) return timeOfDay(value.number);
  return plainText(value, dates);
}

std::string plainText(const CellValue& value, DateSystem dates) {
  if (value.kind == CellKind::kBoolean) return value.boolean ? "True" : "False";
  if (value.kind != CellKind::kNumber) return std::string(value.text);
  return value.numberKind == NumberKind::kPlain ? numberText(value.number) : dayText(value, dates);
}

}  // namespace vireon::files
