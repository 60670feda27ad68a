#pragma once

#include <cstdint>

namespace vireon::form {

// A 24-bit colour, red in the low byte, or one of the desktop's own colours (high bit set).
struct Color {
  std::uint32_t value = 0;

  constexpr bool isSystem() const { return (value & 0x80000000U) != 0; }
  constexpr int red() const { return static_cast<int>(value & 0xFFU); }
  constexpr int green() const { return static_cast<int>((value >> 8U) & 0xFFU); }
  constexpr int blue() const { return static_cast<int>((value >> 16U) & 0xFFU); }
  friend constexpr bool operator==(Color, Color) = default;
};

inline constexpr Color kBlack{0};
inline constexpr Color kRed{255};
inline constexpr Color kGreen{65280};
inline constexpr Color kYellow{65535};
inline constexpr Color kLightGreen{8454016};
inline constexpr Color kLightRed{8421631};
inline constexpr Color kWhite{16777215};
inline constexpr Color kButtonText{0x80000012U};
inline constexpr Color kButtonFace{0x8000000FU};

}  // namespace vireon::form
