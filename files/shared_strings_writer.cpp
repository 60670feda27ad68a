#include "files/shared_strings_writer.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "files/utf16.h"
#include "form/utf8.h"

namespace vireon::files {
namespace {

constexpr std::size_t kMostBuckets = 1000;
constexpr std::size_t kLeastBucket = 8;       // texts
constexpr std::size_t kStringHeader = 3;      // units, 16 bits, and flags
constexpr std::size_t kLongestCharacter = 4;  // two units of two bytes

struct Bucket {
  std::size_t position;  // of its first text in the stream
  std::size_t offset;    // the same from the start of its record
};

class TableWriter {
 public:
  TableWriter(RecordWriter& out, std::size_t uses, std::uint32_t count) : out_(out) {
    begin(biff::kSst);
    out_.u32(uses);
    out_.u32(count);
  }

  void add(std::string_view text) {
    const Utf16Form utf16 = utf16Form(text);
    const unsigned flags = utf16.wide ? biff::kWide : 0;
    if (room() < kStringHeader + kLongestCharacter) continueRecord();
    out_.u16(static_cast<unsigned>(utf16.units));
    out_.u8(flags);
    while (!text.empty()) {
      // Both units of a pair stay in one record: readers decode each part by itself.
      if (room() < kLongestCharacter) {
        continueRecord();
        out_.u8(flags);
      }
      addCharacter(form::takeCharacter(text), utf16.wide);
    }
  }

  Bucket place() {
    if (room() < kStringHeader + kLongestCharacter) continueRecord();
    return {out_.position(), out_.position() - record_};
  }

  void end() { out_.end(); }

 private:
  std::size_t room() const { return biff::kLongest - (out_.position() - record_ - biff::kHeader); }

  void begin(biff::Record record) {
    record_ = out_.position();
    out_.begin(record);
  }

  void continueRecord() {
    out_.end();
    begin(biff::kContinue);
  }

  void addCharacter(char32_t character, bool wide) {
    if (!wide) {
      out_.u8(character);
    } else if (character < 0x10000U) {
      out_.u16(character);
    } else {
      out_.u16(0xD800U + ((character - 0x10000U) >> 10U));
      out_.u16(0xDC00U + (character & 0x3FFU));
    }
  }

  RecordWriter& out_;
  std::size_t record_ = 0;
};

void writeIndex(RecordWriter& out, std::size_t bucketSize, const std::vector<Bucket>& buckets) {
  out.begin(biff::kExtSst);
  out.u16(static_cast<unsigned>(bucketSize));
  for (const Bucket& bucket : buckets) {
    out.u32(bucket.position);
    out.u16(static_cast<unsigned>(bucket.offset));
    out.u16(0);
  }
  out.end();
}

}  // namespace

void writeSharedStrings(RecordWriter& out, const TextPool& texts, std::size_t uses) {
  const std::size_t bucketSize = std::max(kLeastBucket, texts.size() / kMostBuckets + 1);
  std::vector<Bucket> buckets;
  TableWriter table(out, uses, texts.size());
  for (std::uint32_t number = 0; number < texts.size(); ++number) {
    if (number % bucketSize == 0) buckets.push_back(table.place());
    table.add(texts.text(number));
  }
  table.end();
  writeIndex(out, bucketSize, buckets);
}

}  // namespace vireon::files
