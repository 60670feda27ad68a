#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/ini_text.h"
#include "fuzz/require.h"

namespace {

using vireon::app::iniValue;
using vireon::app::withIniValue;
using vireon::fuzz::require;

constexpr std::size_t kMostNames = 8;  // other sections and other keys that are looked at

std::string_view cut(std::string_view text, std::string_view ends) {
  return text.substr(0, text.find_first_of(ends));
}

// The text up to the next zero byte, which goes too.
std::string_view take(std::string_view& rest) {
  const std::string_view part = cut(rest, std::string_view("\0", 1));
  rest.remove_prefix(std::min(rest.size(), part.size() + 1));
  return part;
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

std::string lowered(std::string_view text) {
  std::string result(trimmed(text));
  for (char& letter : result) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter + ('a' - 'A'));
  }
  return result;
}

// What reading gives for a value that was written.
std::string_view readBack(std::string_view value) {
  value = trimmed(cut(value, "\r\n"));
  if (value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'')) {
    value = value.substr(1, value.size() - 2);
  }
  return value.substr(0, vireon::app::kLongestIniValue);
}

struct Names {
  std::vector<std::string> sections;
  std::vector<std::string> keys;
};

// Names that the text may hold, each as it may stand in a line.
Names namesIn(std::string_view text) {
  Names names;
  while (!text.empty()) {
    const std::string_view line = trimmed(cut(text, "\r\n"));
    text.remove_prefix(std::min(text.size(), cut(text, "\r\n").size() + 1));
    if (line.starts_with('[') && names.sections.size() < kMostNames) {
      names.sections.push_back(lowered(cut(line.substr(1), "]")));
    } else if (names.keys.size() < kMostNames) {
      names.keys.push_back(lowered(cut(line, "=")));
    }
  }
  return names;
}

// All bytes that went were in one line.
void requireOneChange(std::string_view before, std::string_view after) {
  const auto [head, ignored] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  before.remove_prefix(static_cast<std::size_t>(head - before.begin()));
  after.remove_prefix(static_cast<std::size_t>(ignored - after.begin()));
  const auto tail = std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend()).first;
  before.remove_suffix(static_cast<std::size_t>(tail - before.rbegin()));
  require(before.find_first_of("\r\n") == std::string_view::npos);
}

}  // namespace

// An input is a section, a key and a value, each ended by a zero byte, and a settings text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(data, data + size);
  std::string_view text = input;
  const std::string_view section = take(text);
  const std::string_view key = take(text);
  const std::string_view value = take(text);

  const std::string before = iniValue(text, section, key);
  require(before.size() <= vireon::app::kLongestIniValue);
  const auto changed = withIniValue(text, section, key, value);
  if (!changed) {
    return 0;
  }
  require(iniValue(*changed, section, key) == readBack(value) ||
          (*changed == text && before == cut(value, "\r\n").substr(0, vireon::app::kLongestIniValue)));
  requireOneChange(text, *changed);
  require(withIniValue(*changed, section, key, value) == changed);
  const Names names = namesIn(text);
  for (const std::string& otherSection : names.sections) {
    for (const std::string& otherKey : names.keys) {
      if (otherSection == lowered(section) && otherKey == lowered(key)) continue;
      require(iniValue(text, otherSection, otherKey) == iniValue(*changed, otherSection, otherKey));
    }
  }
  return 0;
}
