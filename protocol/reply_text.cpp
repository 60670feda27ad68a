#include "protocol/reply_text.h"

#include <charconv>
#include <cstdint>
#include <limits>

#include "form/fault.h"

namespace vireon::protocol {
namespace {

template <class Number>
Number converted(std::string_view digits, int base) {
  Number value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
  if (error != std::errc() || end != digits.data() + digits.size()) {
    throw form::Fault(form::FaultKind::kConversion);
  }
  return value;
}

}  // namespace

std::string_view slice(std::string_view item, std::size_t first, std::size_t last) {
  return first > item.size() ? std::string_view() : item.substr(first - 1, last - first + 1);
}

int hexValue(std::string_view digits) {
  return converted<std::uint8_t>(digits, 16);
}

int decimalValue(std::string_view text) {
  return converted<std::int16_t>(numberText(text), 10);
}

int leadingNumber(std::string_view text) {
  const std::string_view number = numberText(text);
  int value = 0;
  const auto error = std::from_chars(number.data(), number.data() + number.size(), value).ec;
  if (error == std::errc::result_out_of_range) {
    return number.front() == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
  }
  return value;
}

std::string_view numberText(std::string_view text) {
  std::string_view number = trimmed(text);
  if (number.size() > 1 && number[0] == '+' && number[1] != '-') {
    number.remove_prefix(1);
  }
  return number;
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace vireon::protocol
