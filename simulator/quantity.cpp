#include "simulator/quantity.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace vireon::simulator {
namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

double prefixFactor(std::string_view unit) {
  if (unit.empty()) return 1.0;
  switch (unit.front()) {
    case 'n':
      return 1e-9;
    case 'u':
      return 1e-6;
    case 'm':
      return 1e-3;
    case 'k':
      return 1e3;
    case 'M':
      return 1e6;
    default:
      return 1.0;
  }
}

bool isUnitCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '%' || c == '/' ||
         static_cast<unsigned char>(c) >= 0x80U;
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<double> parseDecimal(std::string_view text, std::size_t longest) {
  const bool hasDigit = std::any_of(text.begin(), text.end(), isDigit);
  const bool plain = std::all_of(text.begin(), text.end(), [](char c) { return isDigit(c) || c == '.'; });
  if (!hasDigit || !plain || text.size() > longest) {
    return std::nullopt;
  }
  double value = 0.0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  if (end.ptr != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<double> parseQuantity(std::string_view text) {
  if (text.empty()) return std::nullopt;
  const bool negative = text.front() == '-';
  if (negative || text.front() == '+') text.remove_prefix(1);
  const auto unitStart =
      std::find_if(text.begin(), text.end(), [](char c) { return !isDigit(c) && c != '.'; });
  const auto length = static_cast<std::size_t>(unitStart - text.begin());
  const auto number = parseDecimal(text.substr(0, length), text.size());
  const std::string_view unit = trimmed(text.substr(length));
  if (!number || !std::all_of(unit.begin(), unit.end(), isUnitCharacter)) return std::nullopt;
  return (negative ? -*number : *number) * prefixFactor(unit);
}

}  // namespace vireon::simulator
