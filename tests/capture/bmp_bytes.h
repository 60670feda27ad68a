#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "files/little_endian.h"

namespace vireon::tests {

// A bitmap file put together by hand.
struct BmpBytes {
  std::uint32_t headerSize = 40;
  std::int32_t width = 1;
  std::int32_t height = 1;
  std::uint32_t bits = 24;
  std::uint32_t compression = 0;  // 0 plain, 1 and 2 run lengths of 8 and 4 bits, 3 and 6 bit fields
  std::uint32_t colorsUsed = 0;
  std::string masks;   // between header and colours
  std::string colors;  // blue, green, red, 0 each
  std::string data;

  std::string file() const {
    std::string bytes = "BM";
    const std::uint32_t dataAt = 14 + headerSize + static_cast<std::uint32_t>(masks.size()) +
                                 static_cast<std::uint32_t>(colors.size());
    files::appendNumber(bytes, dataAt + static_cast<std::uint32_t>(data.size()), 4);
    files::appendNumber(bytes, 0, 4);
    files::appendNumber(bytes, dataAt, 4);
    files::appendNumber(bytes, headerSize, 4);
    if (headerSize == 12) {
      files::appendNumber(bytes, static_cast<std::uint32_t>(width), 2);
      files::appendNumber(bytes, static_cast<std::uint32_t>(height), 2);
      files::appendNumber(bytes, 1, 2);
      files::appendNumber(bytes, bits, 2);
    } else {
      files::appendNumber(bytes, static_cast<std::uint32_t>(width), 4);
      files::appendNumber(bytes, static_cast<std::uint32_t>(height), 4);
      files::appendNumber(bytes, 1, 2);
      files::appendNumber(bytes, bits, 2);
      for (const std::uint32_t field : {compression, 0U, 0U, 0U, colorsUsed, 0U}) {
        files::appendNumber(bytes, field, 4);
      }
      bytes.resize(14 + headerSize);
    }
    return bytes + masks + colors + data;
  }
};

// Bytes given as numbers.
inline std::string raw(const std::vector<int>& values) {
  std::string bytes;
  for (const int value : values) bytes += static_cast<char>(value);
  return bytes;
}

}  // namespace vireon::tests
