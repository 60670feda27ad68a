#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vireon::files {

// How a UTF-8 text stands in UTF-16.
struct Utf16Form {
  std::size_t units = 0;
  bool wide = false;  // a unit is above 255
};
Utf16Form utf16Form(std::string_view text);

// Makes UTF-8 of UTF-16 units as they come. A half of a pair without the other is U+FFFD.
class Utf16Decoder {
 public:
  explicit Utf16Decoder(std::string& out) : out_(out) {}

  void add(std::uint16_t unit);
  // After the last unit.
  void finish();

 private:
  std::string& out_;
  char32_t high_ = 0;  // the first half of a pair whose second has not come; 0 is none
};

}  // namespace vireon::files
