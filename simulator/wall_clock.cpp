#include "simulator/wall_clock.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace vireon::simulator {
namespace {

constexpr std::string_view kPattern = "00-00-00 00:00:00";
constexpr int kSecondsPerDay = 24 * 3600;
constexpr int kLongestDuration = 100 * 3600 - 1;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

int pairAt(std::string_view text, std::size_t position) {
  return (text[position] - '0') * 10 + (text[position + 1] - '0');
}

int daysIn(int year, int month) {
  constexpr std::array<int, 12> kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  // Two-digit years are those from 2000 on, in which every fourth is a leap year.
  return kDays[static_cast<std::size_t>(month - 1)] + (month == 2 && year % 4 == 0 ? 1 : 0);
}

std::string clockText(int seconds) {
  std::string text = "00:00:00";
  const auto put = [&text](std::size_t position, int value) {
    text[position] = static_cast<char>('0' + value / 10);
    text[position + 1] = static_cast<char>('0' + value % 10);
  };
  put(0, seconds / 3600);
  put(3, seconds / 60 % 60);
  put(6, seconds % 60);
  return text;
}

}  // namespace

bool isDateTime(std::string_view text) {
  if (text.size() != kPattern.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (isDigit(kPattern[i]) ? !isDigit(text[i]) : text[i] != kPattern[i]) return false;
  }
  const int month = pairAt(text, 3);
  const int day = pairAt(text, 6);
  return month >= 1 && month <= 12 && day >= 1 && day <= daysIn(pairAt(text, 0), month) &&
         pairAt(text, 9) < 24 && pairAt(text, 12) < 60 && pairAt(text, 15) < 60;
}

void WallClock::set(std::string_view dateTime, double now) {
  midnight_ = now - (pairAt(dateTime, 9) * 3600 + pairAt(dateTime, 12) * 60 + pairAt(dateTime, 15));
}

std::string WallClock::timeOfDay(double now) const {
  // A millionth against a whole second that rounding made fall short.
  const double seconds = std::fmod(now - midnight_ + 1e-6, kSecondsPerDay);
  return clockText(static_cast<int>(seconds < 0.0 ? seconds + kSecondsPerDay : seconds) % kSecondsPerDay);
}

std::string durationText(double seconds) {
  return clockText(static_cast<int>(std::clamp(seconds + 1e-6, 0.0, static_cast<double>(kLongestDuration))));
}

}  // namespace vireon::simulator
