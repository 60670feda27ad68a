#include "adapters/hid/report_descriptor.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace vireon::adapters {
namespace {

constexpr std::size_t kLongestDescriptor = 4096;
constexpr std::uint64_t kMostPayloadBits = (4096 - 1) * 8;

// Prefix byte of a short item: bits 0-1 data size, 2-3 type, 4-7 tag. Here: the prefix without the size.
constexpr std::uint8_t kInput = 0x80;
constexpr std::uint8_t kOutput = 0x90;
constexpr std::uint8_t kCollection = 0xA0;
constexpr std::uint8_t kEndCollection = 0xC0;
constexpr std::uint8_t kReportSize = 0x74;
constexpr std::uint8_t kReportId = 0x84;
constexpr std::uint8_t kReportCount = 0x94;
constexpr std::uint8_t kPush = 0xA4;
constexpr std::uint8_t kPop = 0xB4;

// A long item: this prefix, the number of data bytes, a tag, the data.
constexpr std::uint8_t kLongItem = 0xFE;
constexpr std::size_t kLongItemHead = 3;

struct Item {
  std::uint8_t kind = 0;
  std::uint32_t value = 0;
};

// Takes the first item off `rest`; none where it is cut. Long items come out with kind kLongItem.
std::optional<Item> takeItem(std::span<const std::uint8_t>& rest) {
  const std::uint8_t prefix = rest.front();
  if (prefix == kLongItem) {
    if (rest.size() < kLongItemHead || rest.size() - kLongItemHead < rest[1]) return std::nullopt;
    rest = rest.subspan(kLongItemHead + rest[1]);
    return Item{.kind = kLongItem};
  }
  constexpr std::array<std::size_t, 4> kDataSizes{0, 1, 2, 4};
  const std::size_t size = kDataSizes[prefix & 3U];
  if (rest.size() < 1 + size) return std::nullopt;
  Item item{.kind = static_cast<std::uint8_t>(prefix & 0xFCU)};
  for (std::size_t i = 0; i < size; ++i) item.value |= std::uint32_t{rest[1 + i]} << (8 * i);
  rest = rest.subspan(1 + size);
  return item;
}

struct Globals {
  std::uint32_t reportSize = 0;  // bits of one field
  std::uint32_t reportCount = 0;
  std::uint8_t reportId = 0;  // 0: reports are not numbered
};

using BitsById = std::array<std::uint64_t, 256>;

class DescriptorReader {
 public:
  // False where the item contradicts what came before it or describes too much.
  bool take(const Item& item) {
    switch (item.kind) {
      case kInput:
        inputNumbered_ = inputNumbered_ || globals_.reportId != 0;
        return addField(inputBits_);
      case kOutput:
        return addField(outputBits_);
      case kCollection:
        ++openCollections_;
        return true;
      case kEndCollection:
        return closeCollection();
      case kReportSize:
        globals_.reportSize = item.value;
        return true;
      case kReportCount:
        globals_.reportCount = item.value;
        return true;
      case kReportId:
        globals_.reportId = static_cast<std::uint8_t>(item.value);
        return item.value >= 1 && item.value <= 255;
      case kPush:
        saved_.push_back(globals_);
        return true;
      case kPop:
        return pop();
      default:
        return true;
    }
  }

  bool complete() const { return openCollections_ == 0; }

  ReportLayout layout() const {
    ReportLayout layout{.lengths = {}, .inputNumbered = inputNumbered_};
    setLength(layout.lengths.inputReportLength, inputBits_);
    setLength(layout.lengths.outputReportLength, outputBits_);
    return layout;
  }

 private:
  bool addField(BitsById& bitsById) const {
    std::uint64_t& bits = bitsById[globals_.reportId];
    bits += std::uint64_t{globals_.reportSize} * globals_.reportCount;
    return bits <= kMostPayloadBits;
  }

  bool closeCollection() {
    if (openCollections_ == 0) return false;
    --openCollections_;
    return true;
  }

  bool pop() {
    if (saved_.empty()) return false;
    globals_ = saved_.back();
    saved_.pop_back();
    return true;
  }

  static void setLength(std::size_t& length, const BitsById& bitsById) {
    const std::uint64_t longest = *std::ranges::max_element(bitsById);
    if (longest > 0) length = 1 + static_cast<std::size_t>((longest + 7) / 8);
  }

  Globals globals_;
  std::vector<Globals> saved_;
  BitsById inputBits_{};
  BitsById outputBits_{};
  std::size_t openCollections_ = 0;
  bool inputNumbered_ = false;
};

}  // namespace

ReportLayout reportLayout(std::span<const std::uint8_t> descriptor) {
  if (descriptor.size() > kLongestDescriptor) return {};
  DescriptorReader reader;
  while (!descriptor.empty()) {
    const std::optional<Item> item = takeItem(descriptor);
    if (!item || !reader.take(*item)) return {};
  }
  return reader.complete() ? reader.layout() : ReportLayout{};
}

}  // namespace vireon::adapters
