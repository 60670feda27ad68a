#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

#include "files/biff.h"

// Workbook streams put together by hand.
namespace vireon::tests {

inline std::string bytesOf(std::uint64_t value, unsigned size) {
  std::string bytes;
  for (unsigned index = 0; index < size; ++index) bytes += static_cast<char>(value >> (8U * index));
  return bytes;
}
inline std::string u8(unsigned value) {
  return bytesOf(value, 1);
}
inline std::string u16(unsigned value) {
  return bytesOf(value, 2);
}
inline std::string u32(std::uint32_t value) {
  return bytesOf(value, 4);
}
inline std::string f64(double value) {
  return bytesOf(std::bit_cast<std::uint64_t>(value), 8);
}

inline std::string record(unsigned number, std::string_view content) {
  return u16(number) + u16(static_cast<unsigned>(content.size())) + std::string(content);
}

// A text of one byte a character, as the table and cells have it.
inline std::string narrow(std::string_view text) {
  return u16(static_cast<unsigned>(text.size())) + u8(0) + std::string(text);
}
// One of two bytes a character.
inline std::string wide(std::u16string_view text) {
  std::string bytes = u16(static_cast<unsigned>(text.size())) + u8(files::biff::kWide);
  for (const char16_t unit : text) bytes += u16(unit);
  return bytes;
}

inline std::string cellAt(unsigned row, unsigned column, unsigned format = 0) {
  return u16(row) + u16(column) + u16(format);
}

inline std::string begin(unsigned part, unsigned version = files::biff::kVersion8) {
  return record(files::biff::kBof, u16(version) + u16(part) + u16(0x0DBB) + u16(0x07CC) + u32(0) + u32(0));
}
inline std::string end() {
  return record(files::biff::kEof, "");
}

// The records' text table.
inline std::string table(std::uint32_t count, std::string_view texts) {
  return record(files::biff::kSst, u32(count) + u32(count) + std::string(texts));
}

struct SheetBytes {
  std::string records;
  unsigned visibility = 0;  // 1 hidden, 2 hidden for good
  unsigned kind = 0;        // 2 a chart
};

// A workbook of these sheets, with more records before their list.
template <typename... Sheets>
std::string workbook(std::string_view globals, const Sheets&... sheets) {
  const SheetBytes all[] = {sheets...};
  std::size_t position = begin(files::biff::kGlobals).size() + globals.size() + end().size();
  for (const SheetBytes& sheet : all) {
    static_cast<void>(sheet);
    position += record(files::biff::kBoundSheet, u32(0) + u16(0) + u8(1) + u8(0) + "S").size();
  }
  std::string stream = begin(files::biff::kGlobals) + std::string(globals);
  for (const SheetBytes& sheet : all) {
    stream +=
        record(files::biff::kBoundSheet, u32(static_cast<std::uint32_t>(position)) + u8(sheet.visibility) +
                                             u8(sheet.kind) + u8(1) + u8(0) + "S");
    position += begin(files::biff::kWorksheet).size() + sheet.records.size() + end().size();
  }
  stream += end();
  for (const SheetBytes& sheet : all) {
    stream += begin(sheet.kind == 0 ? files::biff::kWorksheet : 0x0020U) + sheet.records + end();
  }
  return stream;
}

// A workbook of one sheet with these records.
inline std::string oneSheet(std::string_view records, std::string_view globals = "") {
  return workbook(globals, SheetBytes{std::string(records)});
}

}  // namespace vireon::tests
