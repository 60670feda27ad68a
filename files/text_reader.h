#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "files/record_reader.h"

namespace vireon::files {

// Reads on from a record's content into that of the kContinue records behind it.
class TextReader {
 public:
  // Begins at an offset of the record at which `record` stands; none if it is shorter.
  TextReader(const RecordReader& record, std::size_t offset);

  // A text with its length, flags, formatting runs and phonetic text around it, as UTF-8 behind `out`; where
  // that is null it is passed over. False where the bytes end before.
  bool text(std::string* out);

 private:
  std::optional<std::uint32_t> number(std::size_t bytes);
  bool skip(std::uint64_t bytes);
  bool characters(std::size_t count, bool wide, std::string* out);
  // Goes to the next record that has bytes.
  bool nextPart();

  RecordReader record_;
  std::string_view rest_;
};

}  // namespace vireon::files
