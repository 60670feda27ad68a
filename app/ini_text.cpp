#include "app/ini_text.h"

#include <algorithm>

#include "form/ascii.h"

namespace vireon::app {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kValueEnds("\r\n\0", 3);
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool isUtf16(std::string_view text) {
  return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

bool isSameName(std::string_view one, std::string_view other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](char a, char b) { return form::smallLetter(a) == form::smallLetter(b); });
}

std::string_view withoutQuotes(std::string_view value) {
  const bool quoted =
      value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string_view valueOf(std::string_view behindEquals) {
  const std::string_view value = withoutQuotes(form::withoutBlanks(behindEquals));
  return value.substr(0, value.find('\0'));
}

// Positions in the text, in bytes.
struct Line {
  std::size_t start = 0;
  std::size_t end = 0;   // of its text
  std::size_t next = 0;  // behind its line end
};

Line lineAt(std::string_view text, std::size_t start) {
  const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
  const std::size_t lineEnd = text.substr(end, 2) == "\r\n" ? 2 : 1;
  return {.start = start, .end = end, .next = std::min(end + lineEnd, text.size())};
}

struct Place {
  std::optional<Line> keyLine;
  std::size_t equals = 0;                 // position of the '=' in keyLine
  std::optional<std::size_t> sectionEnd;  // behind the last line of the first such section that is not blank
};

std::optional<std::string_view> sectionName(std::string_view line) {
  const std::size_t close = line.find(']');
  if (!line.starts_with('[') || close == std::string_view::npos) return std::nullopt;
  return form::withoutBlanks(line.substr(1, close - 1));
}

// A key that the first section of the name lacks is looked for in later ones of the same name.
Place findKey(std::string_view text, std::string_view section, std::string_view key) {
  Place place;
  bool inSection = false;
  bool inFirst = false;
  std::size_t position = text.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0;
  while (position < text.size()) {
    const Line line = lineAt(text, position);
    position = line.next;
    const std::string_view whole = text.substr(line.start, line.end - line.start);
    const std::string_view content = form::withoutBlanks(whole);
    if (const std::optional<std::string_view> name = sectionName(content)) {
      inSection = isSameName(*name, section);
      inFirst = inSection && !place.sectionEnd;
    } else if (const std::size_t equals = content.find('=');
               inSection && equals != std::string_view::npos && !content.starts_with(';') &&
               isSameName(form::withoutBlanks(content.substr(0, equals)), key)) {
      place.keyLine = line;
      place.equals = line.start + whole.find('=');
      return place;
    }
    if (inFirst && !content.empty()) place.sectionEnd = line.next;
  }
  return place;
}

bool isWritable(std::string_view section, std::string_view key) {
  return !section.empty() &&
         section.find_first_of(std::string_view("]\r\n\0", 4)) == std::string_view::npos && !key.empty() &&
         key.find_first_of(std::string_view("=\r\n\0", 4)) == std::string_view::npos &&
         !key.starts_with(';') && !key.starts_with('[');
}

// That of the first line; CR LF where there is none.
std::string_view lineEndOf(std::string_view text) {
  const std::size_t end = text.find_first_of("\r\n");
  return end != std::string_view::npos && text[end] == '\n' ? "\n" : "\r\n";
}

// The text with more lines at a position behind a line end, or behind a last line that lacks one.
std::string withLines(std::string_view text, std::size_t position, std::string_view lines) {
  const std::string_view before = text.substr(0, position);
  const bool isOpen =
      !before.empty() && before != kUtf8Mark && before.back() != '\n' && before.back() != '\r';
  std::string result(before);
  if (isOpen) result += lineEndOf(text);
  return result.append(lines).append(text.substr(position));
}

}  // namespace

std::string iniValue(std::string_view text, std::string_view section, std::string_view key) {
  section = form::withoutBlanks(section);
  key = form::withoutBlanks(key);
  if (isUtf16(text) || section.empty() || key.empty()) return {};
  const Place place = findKey(text, section, key);
  if (!place.keyLine) return {};
  const std::size_t start = place.equals + 1;
  return std::string(valueOf(text.substr(start, place.keyLine->end - start)).substr(0, kLongestIniValue));
}

std::optional<std::string> withIniValue(std::string_view text, std::string_view section, std::string_view key,
                                        std::string_view value) {
  section = form::withoutBlanks(section);
  key = form::withoutBlanks(key);
  value = value.substr(0, value.find_first_of(kValueEnds));
  if (isUtf16(text) || !isWritable(section, key)) return std::nullopt;
  const Place place = findKey(text, section, key);
  if (place.keyLine) {
    const std::string_view before = text.substr(0, place.equals);
    const std::string_view behind = text.substr(place.equals + 1, place.keyLine->end - place.equals - 1);
    if (valueOf(behind) == value) return std::string(text);
    const std::size_t keyEnd = before.find_last_not_of(kBlanks) + 1;
    return std::string(before.substr(0, keyEnd))
        .append("=")
        .append(value)
        .append(text.substr(place.keyLine->end));
  }
  const std::string_view lineEnd = lineEndOf(text);
  std::string lines;
  if (!place.sectionEnd) lines.append("[").append(section).append("]").append(lineEnd);
  lines.append(key).append("=").append(value).append(lineEnd);
  return withLines(text, place.sectionEnd.value_or(text.size()), lines);
}

}  // namespace vireon::app
