#pragma once

#include <cstddef>
#include <cstdint>

// The records of a workbook stream: a number, the length of what follows, both 16 bits, and that many bytes,
// all little end first.
namespace vireon::files::biff {

inline constexpr std::size_t kHeader = 4;      // bytes before a record's content
inline constexpr std::size_t kLongest = 8224;  // bytes of a record's content; more goes to kContinue

inline constexpr std::uint16_t kVersion8 = 0x0600;

// The parts that a kBof begins.
inline constexpr std::uint16_t kGlobals = 0x0005;
inline constexpr std::uint16_t kWorksheet = 0x0010;

enum Record : std::uint16_t {
  kFormula = 0x0006,
  kEof = 0x000A,
  kDateMode = 0x0022,
  kFilePass = 0x002F,
  kFont = 0x0031,
  kContinue = 0x003C,
  kWindow1 = 0x003D,
  kCodePage = 0x0042,
  kDefaultColumnWidth = 0x0055,
  kColumnInfo = 0x007D,
  kBoundSheet = 0x0085,
  kMulRk = 0x00BD,
  kRString = 0x00D6,
  kDbCell = 0x00D7,
  kXf = 0x00E0,
  kSst = 0x00FC,
  kLabelSst = 0x00FD,
  kExtSst = 0x00FF,
  kDimensions = 0x0200,
  kNumber = 0x0203,
  kLabel = 0x0204,
  kBoolErr = 0x0205,
  kString = 0x0207,
  kRow = 0x0208,
  kIndex = 0x020B,
  kWindow2 = 0x023E,
  kRk = 0x027E,
  kStyle = 0x0293,
  kFormat = 0x041E,
  kBof = 0x0809,
};

// The kBof of the versions 2, 3 and 4.
inline constexpr std::uint16_t kBof2 = 0x0009;
inline constexpr std::uint16_t kBof3 = 0x0209;
inline constexpr std::uint16_t kBof4 = 0x0409;

// Bits of a string's flag byte.
inline constexpr unsigned kWide = 0x01;      // two bytes a character, else the low byte alone
inline constexpr unsigned kPhonetic = 0x04;  // the length of phonetic text follows, 32 bits
inline constexpr unsigned kRich = 0x08;      // the count of formatting runs follows, 16 bits

}  // namespace vireon::files::biff
