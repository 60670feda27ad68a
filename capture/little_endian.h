#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vireon::capture {

inline std::uint32_t byteAt(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

// Numbers of 16 and 32 bits, low byte first; `at` and the bytes behind it lie inside.
inline std::uint32_t word(std::string_view bytes, std::size_t at) {
  return byteAt(bytes, at) | byteAt(bytes, at + 1) << 8U;
}
inline std::uint32_t doubleWord(std::string_view bytes, std::size_t at) {
  return word(bytes, at) | word(bytes, at + 2) << 16U;
}

inline void appendWord(std::string& bytes, std::uint32_t value) {
  bytes += static_cast<char>(value & 255U);
  bytes += static_cast<char>(value >> 8U & 255U);
}
inline void appendDoubleWord(std::string& bytes, std::uint32_t value) {
  appendWord(bytes, value & 0xFFFFU);
  appendWord(bytes, value >> 16U);
}

}  // namespace vireon::capture
