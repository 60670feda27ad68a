#include "capture/bmp_file.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <optional>

#include "capture/bmp_rows.h"
#include "files/little_endian.h"

namespace vireon::capture {
namespace {

constexpr std::size_t kFileHeader = 14;  // bytes: "BM", file size, 4 reserved, where the pixels are
constexpr std::size_t kDataOffset = 10;
constexpr std::size_t kCoreHeader = 12;  // the oldest kind, with sizes of 16 bits
constexpr std::size_t kInfoHeader = 40;
constexpr std::size_t kInfoHeaderWithMasks = 52;
constexpr std::size_t kLongestHeader = 4096;

enum Compression : std::uint32_t {
  kPlain = 0,
  kRunLength8 = 1,
  kRunLength4 = 2,
  kBitFields = 3,
  kAlphaBitFields = 6
};

constexpr std::array<std::uint32_t, 3> kMasks16{0x7C00, 0x03E0, 0x001F};
constexpr std::array<std::uint32_t, 3> kMasks32{0xFF0000, 0x00FF00, 0x0000FF};

struct Header {
  std::size_t size = 0;  // bytes
  std::int64_t width = 0;
  std::int64_t height = 0;  // negative for rows downwards
  unsigned bits = 0;
  std::uint32_t compression = kPlain;
  std::uint32_t colorsUsed = 0;  // 0 for all that the bits allow
};

std::optional<Header> headerOf(std::string_view file) {
  Header header;
  header.size = files::u32At(file, kFileHeader);
  if ((header.size != kCoreHeader && (header.size < kInfoHeader || header.size > kLongestHeader)) ||
      file.size() < kFileHeader + header.size) {
    return std::nullopt;
  }
  const std::string_view at = file.substr(kFileHeader);
  if (header.size == kCoreHeader) {
    header.width = files::u16At(at, 4);
    header.height = files::u16At(at, 6);
    header.bits = files::u16At(at, 10);
    return header;
  }
  header.width = std::bit_cast<std::int32_t>(files::u32At(at, 4));
  header.height = std::bit_cast<std::int32_t>(files::u32At(at, 8));
  header.bits = files::u16At(at, 14);
  header.compression = files::u32At(at, 16);
  header.colorsUsed = files::u32At(at, 32);
  return header;
}

bool fits(const Header& header) {
  switch (header.compression) {
    case kPlain:
      return header.bits == 1 || header.bits == 4 || header.bits == 8 || header.bits == 16 ||
             header.bits == 24 || header.bits == 32;
    case kRunLength8:
      return header.bits == 8 && header.height > 0;
    case kRunLength4:
      return header.bits == 4 && header.height > 0;
    case kBitFields:
    case kAlphaBitFields:
      return header.bits == 16 || header.bits == 32;
    default:
      return false;
  }
}

bool isField(std::uint32_t mask) {
  const std::uint32_t low = mask == 0 ? 0 : mask >> static_cast<unsigned>(std::countr_zero(mask));
  return (low & (low + 1)) == 0;
}

std::vector<std::uint32_t> colorTable(std::string_view bytes, const Header& header) {
  const std::size_t width = header.size == kCoreHeader ? 3 : 4;
  const std::size_t most = std::size_t{1} << header.bits;
  const std::size_t told = header.colorsUsed == 0 ? most : std::min<std::size_t>(header.colorsUsed, most);
  std::vector<std::uint32_t> colors(std::min(told, bytes.size() / width));
  for (std::size_t i = 0; i < colors.size(); ++i) {
    colors[i] = files::u24At(bytes, i * width);
  }
  return colors;
}

BmpResult failed(BmpError error) {
  return {{}, error};
}

}  // namespace

BmpResult readBmp(std::string_view bytes, std::int64_t mostPixels) {
  if (!bytes.starts_with("BM")) {
    return failed(BmpError::kNoBitmap);
  }
  if (bytes.size() < kFileHeader + 4) {
    return failed(BmpError::kDamaged);
  }
  const auto header = headerOf(bytes);
  if (!header || header->width <= 0 || header->height == 0) {
    return failed(BmpError::kDamaged);
  }
  if (!fits(*header)) {
    return failed(BmpError::kUnsupported);
  }
  const std::int64_t height = std::abs(header->height);
  if (header->width > mostPixels || height > mostPixels / header->width) {
    return failed(BmpError::kTooLarge);
  }

  BmpLayout layout;
  layout.width = static_cast<int>(header->width);
  layout.height = static_cast<int>(height);
  layout.downwards = header->height < 0;
  layout.bits = header->bits;
  layout.runLengths = header->compression == kRunLength8 || header->compression == kRunLength4;
  layout.masks = header->bits == 16 ? kMasks16 : kMasks32;
  std::size_t tableAt = kFileHeader + header->size;
  if (header->compression == kBitFields || header->compression == kAlphaBitFields) {
    const std::size_t masksAt = kFileHeader + kInfoHeader;
    if (bytes.size() < masksAt + 12) {
      return failed(BmpError::kDamaged);
    }
    for (std::size_t i = 0; i < layout.masks.size(); ++i) {
      layout.masks[i] = files::u32At(bytes, masksAt + 4 * i);
    }
    if (!std::all_of(layout.masks.begin(), layout.masks.end(), isField)) {
      return failed(BmpError::kUnsupported);
    }
    tableAt = std::max(tableAt, kFileHeader + kInfoHeaderWithMasks);
  }
  const std::size_t dataAt = files::u32At(bytes, kDataOffset);
  if (dataAt < tableAt || dataAt > bytes.size()) {
    return failed(BmpError::kDamaged);
  }
  if (header->bits <= 8) {
    layout.colors = colorTable(bytes.substr(tableAt, dataAt - tableAt), *header);
  }
  const std::string_view data = bytes.substr(dataAt);
  platform::Bitmap bitmap = layout.runLengths ? runLengthRows(layout, data) : plainRows(layout, data);
  return bitmap.empty() ? failed(BmpError::kDamaged) : BmpResult{std::move(bitmap), BmpError::kNone};
}

std::string bmpFile(const platform::Bitmap& bitmap) {
  constexpr std::uint32_t kHeaders = kFileHeader + kInfoHeader;
  constexpr std::uint32_t kPixelsPerMetre = 3780;  // 96 dpi
  const auto width = static_cast<std::size_t>(bitmap.width);
  const auto height = static_cast<std::size_t>(bitmap.height);
  const std::size_t stride = (3 * width + 3) / 4 * 4;
  const auto size = static_cast<std::uint32_t>(stride * height);

  std::string file = "BM";
  file.reserve(kHeaders + size);
  for (const std::uint32_t value : {kHeaders + size, 0U, kHeaders, static_cast<std::uint32_t>(kInfoHeader),
                                    static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)}) {
    files::appendNumber(file, value, 4);
  }
  files::appendNumber(file, 1, 2);  // planes
  files::appendNumber(file, 24, 2);
  for (const std::uint32_t value :
       {static_cast<std::uint32_t>(kPlain), size, kPixelsPerMetre, kPixelsPerMetre, 0U, 0U}) {
    files::appendNumber(file, value, 4);
  }
  for (int y = bitmap.height - 1; y >= 0; --y) {
    for (int x = 0; x < bitmap.width; ++x) {
      files::appendNumber(file, bitmap.at(x, y), 3);
    }
    file.append(stride - 3 * width, '\0');
  }
  return file;
}

}  // namespace vireon::capture
