#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "capture/little_endian.h"

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
    capture::appendDoubleWord(bytes, dataAt + static_cast<std::uint32_t>(data.size()));
    capture::appendDoubleWord(bytes, 0);
    capture::appendDoubleWord(bytes, dataAt);
    capture::appendDoubleWord(bytes, headerSize);
    if (headerSize == 12) {
      capture::appendWord(bytes, static_cast<std::uint32_t>(width));
      capture::appendWord(bytes, static_cast<std::uint32_t>(height));
      capture::appendWord(bytes, 1);
      capture::appendWord(bytes, bits);
    } else {
      capture::appendDoubleWord(bytes, static_cast<std::uint32_t>(width));
      capture::appendDoubleWord(bytes, static_cast<std::uint32_t>(height));
      capture::appendWord(bytes, 1);
      capture::appendWord(bytes, bits);
      for (const std::uint32_t field : {compression, 0U, 0U, 0U, colorsUsed, 0U}) {
        capture::appendDoubleWord(bytes, field);
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
