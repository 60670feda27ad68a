#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Numbers in a file's bytes, little end first; what is read must lie in the bytes.
namespace vireon::files {

template <typename Number, std::size_t Bytes = sizeof(Number)>
Number numberAt(std::string_view bytes, std::size_t place) {
  std::uint64_t value = 0;
  for (std::size_t index = Bytes; index-- > 0;) {
    value = value << 8U | static_cast<unsigned char>(bytes[place + index]);
  }
  return static_cast<Number>(value);
}

inline std::uint8_t u8At(std::string_view bytes, std::size_t place) {
  return numberAt<std::uint8_t>(bytes, place);
}
inline std::uint16_t u16At(std::string_view bytes, std::size_t place) {
  return numberAt<std::uint16_t>(bytes, place);
}
inline std::uint32_t u24At(std::string_view bytes, std::size_t place) {
  return numberAt<std::uint32_t, 3>(bytes, place);
}
inline std::uint32_t u32At(std::string_view bytes, std::size_t place) {
  return numberAt<std::uint32_t>(bytes, place);
}
inline double f64At(std::string_view bytes, std::size_t place) {
  return std::bit_cast<double>(numberAt<std::uint64_t>(bytes, place));
}

// Appends the lowest bytes of a value, 8 at most.
inline void appendNumber(std::string& bytes, std::uint64_t value, unsigned size) {
  char number[8];
  for (unsigned index = 0; index < size; ++index) number[index] = static_cast<char>(value >> (8U * index));
  bytes.append(number, size);
}

}  // namespace vireon::files
