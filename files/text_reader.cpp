#include "files/text_reader.h"

#include <algorithm>

#include "files/utf16.h"

namespace vireon::files {
namespace {

constexpr std::size_t kRunBytes = 4;

}  // namespace

TextReader::TextReader(const RecordReader& record, std::size_t offset)
    : record_(record), rest_(record.content().substr(std::min(offset, record.content().size()))) {}

bool TextReader::text(std::string* out) {
  const auto length = number(2);
  const auto flags = number(1);
  if (!length || !flags) return false;
  const auto runs = (*flags & biff::kRich) != 0 ? number(2) : 0;
  const auto phonetic = (*flags & biff::kPhonetic) != 0 ? number(4) : 0;
  return runs && phonetic && characters(*length, (*flags & biff::kWide) != 0, out) &&
         skip(*runs * kRunBytes) && skip(*phonetic);
}

std::optional<std::uint32_t> TextReader::number(std::size_t bytes) {
  std::uint32_t value = 0;
  for (std::size_t index = 0; index < bytes; ++index) {
    if (rest_.empty() && !nextPart()) return std::nullopt;
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(rest_.front())) << (8U * index);
    rest_.remove_prefix(1);
  }
  return value;
}

bool TextReader::skip(std::uint64_t bytes) {
  while (bytes > 0) {
    if (rest_.empty() && !nextPart()) return false;
    const std::size_t part = static_cast<std::size_t>(std::min<std::uint64_t>(bytes, rest_.size()));
    rest_.remove_prefix(part);
    bytes -= part;
  }
  return true;
}

bool TextReader::characters(std::size_t count, bool wide, std::string* out) {
  std::string ignored;
  Utf16Decoder decoder(out == nullptr ? ignored : *out);
  while (count > 0) {
    if (rest_.empty()) {
      // A part of the characters in a further record has a flag byte of its own.
      const auto flags = number(1);
      if (!flags) return false;
      wide = (*flags & biff::kWide) != 0;
      continue;
    }
    const std::size_t size = wide ? 2 : 1;
    const std::size_t units = std::min(count, rest_.size() / size);
    if (units == 0) return false;
    for (std::size_t index = 0; out != nullptr && index < units; ++index) {
      decoder.add(wide ? u16At(rest_, index * 2) : static_cast<unsigned char>(rest_[index]));
    }
    rest_.remove_prefix(units * size);
    count -= units;
  }
  decoder.finish();
  return true;
}

bool TextReader::nextPart() {
  do {
    if (!record_.next() || record_.record() != biff::kContinue) return false;
    rest_ = record_.content();
  } while (rest_.empty());
  return true;
}

}  // namespace vireon::files
