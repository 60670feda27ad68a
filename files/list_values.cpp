#include "files/list_values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace vireon::files {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kLineEnds = "\r\n";
constexpr double kPlainBelow = 1e15;  // numbers from here on, and tiny ones, are printed with an exponent
constexpr double kPlainFrom = 1e-5;

bool isDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

std::optional<double> hexNumber(std::string_view digits) {
  std::uint8_t value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  if (error != std::errc() || end != digits.data() + digits.size()) {
    return std::nullopt;
  }
  return value;
}

}  // namespace

std::string_view untilEndOfFile(std::string_view file) {
  return file.substr(0, file.find(kEndOfFile));
}

std::string listNumber(double value) {
  const double size = std::abs(value);
  const bool plain = size == 0 || (size >= kPlainFrom && size < kPlainBelow);
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), size,
                                 plain ? std::chars_format::fixed : std::chars_format::scientific)
                       .ptr;
  std::replace(digits.data(), end, 'e', 'E');
  return (value < 0 ? "-" : " ") + std::string(digits.data(), end) + ' ';
}

std::string listCaption(std::string_view caption) {
  std::string text(caption);
  std::replace_if(
      text.begin(), text.end(), [](char letter) { return static_cast<unsigned char>(letter) < ' '; }, ' ');
  return text;
}

std::optional<double> numberOfField(std::string_view field) {
  const std::size_t last = field.find_last_not_of(kBlanks);
  field = field.substr(0, last == std::string_view::npos ? 0 : last + 1);
  if (field.starts_with("&H") || field.starts_with("&h")) {
    return hexNumber(field.substr(2));
  }
  if (field.starts_with('+') && !field.starts_with("+-")) {
    field.remove_prefix(1);
  }
  // Not "inf" or "nan".
  const std::string_view digits = field.substr(field.starts_with('-') ? 1 : 0);
  if (digits.empty() || (!isDigit(digits.front()) && digits.front() != '.')) {
    return std::nullopt;
  }
  double value = 0;
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
  if (error != std::errc() || end != field.data() + field.size()) {
    return std::nullopt;
  }
  return value;
}

std::optional<std::string_view> ListReader::field() {
  if (!begin()) {
    return std::nullopt;
  }
  std::string_view result;
  if (rest_.starts_with('"')) {
    take(1);
    result = take(std::min(rest_.find('"'), rest_.find_first_of(kLineEnds)));
    take(rest_.find_first_of(",\r\n"));
  } else {
    result = take(rest_.find_first_of(",\r\n"));
  }
  inLine_ = rest_.starts_with(',');
  if (inLine_) {
    take(1);
  } else {
    passLineEnd();
  }
  return result;
}

std::optional<std::string_view> ListReader::lineField() {
  const auto result = field();
  if (inLine_) {
    take(rest_.find_first_of(kLineEnds));
    passLineEnd();
    inLine_ = false;
  }
  return result;
}

// Leads to the next field's first character; False at the end of the file.
bool ListReader::begin() {
  if (rest_.empty()) {
    return false;
  }
  line_ += inLine_ ? 0 : 1;
  take(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
  return true;
}

std::string_view ListReader::take(std::size_t length) {
  const std::string_view taken = rest_.substr(0, length);
  rest_.remove_prefix(taken.size());
  return taken;
}

void ListReader::passLineEnd() {
  take(rest_.starts_with(kLineEnd) ? 2 : 1);
}

}  // namespace vireon::files
