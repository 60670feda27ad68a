#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "files/biff.h"
#include "files/little_endian.h"

namespace vireon::files {

// Appends records to a stream, little end first.
class RecordWriter {
 public:
  // Where a stream stands now.
  std::size_t position() const { return stream_.size(); }
  void reserve(std::size_t bytes) { stream_.reserve(bytes); }
  std::string take() { return std::move(stream_); }

  // A record's header; `length` bytes must follow, unless end() sets the length.
  void begin(biff::Record record, std::size_t length = 0) {
    start_ = position();
    u16(record);
    u16(static_cast<unsigned>(length));
  }
  // Makes the record begun last as long as what has been written since.
  void end() { patch(start_ + 2, position() - start_ - biff::kHeader, 2); }

  // The record that begins a part: biff::kGlobals or biff::kWorksheet.
  void beginPart(std::uint16_t part) {
    begin(biff::kBof, 16);
    u16(biff::kVersion8);
    u16(part);
    u16(0x0DBB);      // build
    u16(0x07CC);      // and its year
    u32(0x00000041);  // history
    u32(biff::kVersion8);
  }

  void u8(unsigned value) { stream_ += static_cast<char>(value); }
  void u16(unsigned value) { appendNumber(stream_, value, 2); }
  void u32(std::size_t value) { appendNumber(stream_, value, 4); }
  void f64(double value) { appendNumber(stream_, std::bit_cast<std::uint64_t>(value), 8); }
  void bytes(std::string_view value) { stream_ += value; }

  // Writes a 32-bit number over an earlier place.
  void patch32(std::size_t place, std::size_t value) { patch(place, value, 4); }

 private:
  void patch(std::size_t place, std::size_t value, unsigned size) {
    for (unsigned index = 0; index < size; ++index) {
      stream_[place + index] = static_cast<char>(value >> (8U * index));
    }
  }

  std::string stream_;
  std::size_t start_ = 0;
};

}  // namespace vireon::files
