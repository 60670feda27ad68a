#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "files/biff.h"
#include "files/little_endian.h"

namespace vireon::files {

// Walks the records of a stream.
class RecordReader {
 public:
  explicit RecordReader(std::string_view stream, std::size_t position = 0)
      : stream_(stream), next_(position) {}

  // Goes to the next record; False where the stream ends or cuts it off.
  bool next() {
    position_ = next_;
    if (position_ > stream_.size() || stream_.size() - position_ < biff::kHeader) return false;
    const std::size_t length = u16At(stream_, position_ + 2);
    if (stream_.size() - position_ - biff::kHeader < length) return false;
    content_ = stream_.substr(position_ + biff::kHeader, length);
    next_ = position_ + biff::kHeader + length;
    return true;
  }

  std::uint16_t record() const { return u16At(stream_, position_); }
  std::size_t position() const { return position_; }
  std::string_view content() const { return content_; }

 private:
  std::string_view stream_;
  std::string_view content_;
  std::size_t position_ = 0;
  std::size_t next_;
};

}  // namespace vireon::files
