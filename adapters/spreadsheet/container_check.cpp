#include "adapters/spreadsheet/container_check.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vireon::adapters {
namespace {

constexpr std::string_view kMagic = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr std::size_t kHeaderBytes = 512;
constexpr std::size_t kEntryBytes = 128;
constexpr std::size_t kHeaderTables = 109;          // allocation tables that the header itself lists
constexpr std::uint32_t kMostSectors = 0xFFFFFFFA;  // numbers from here on mark ends and free places

// Places in the header.
constexpr std::size_t kByteOrder = 0x1C;
constexpr std::size_t kSectorShift = 0x1E;
constexpr std::size_t kSmallSectorShift = 0x20;
constexpr std::size_t kTableCount = 0x2C;
constexpr std::size_t kFolderStart = 0x30;
constexpr std::size_t kSmallTableCount = 0x40;
constexpr std::size_t kListStart = 0x44;
constexpr std::size_t kListCount = 0x48;
constexpr std::size_t kList = 0x4C;

// Places in an entry of the folder.
constexpr std::size_t kEntryKind = 0x42;
constexpr std::size_t kEntryBefore = 0x44;
constexpr std::size_t kEntryBehind = 0x48;
constexpr std::size_t kEntrySize = 0x78;
constexpr std::uint32_t kNoEntry = 0xFFFFFFFF;
constexpr unsigned kStreamKind = 2;

class Container {
 public:
  explicit Container(std::string_view file) : file_(file) {}

  bool isSound() {
    if (file_.size() < kHeaderBytes || u16(kByteOrder) != 0xFFFE || u16(kSmallSectorShift) != 6) return false;
    const unsigned shift = u16(kSectorShift);
    if (shift != 9 && shift != 12) return false;
    sector_ = std::size_t{1} << shift;
    sectors_ = (file_.size() - kHeaderBytes + sector_ - 1) / sector_;
    return u32(kSmallTableCount) <= sectors_ && readTables() && isFolderSound();
  }

 private:
  std::uint16_t u16(std::size_t place) const {
    return static_cast<std::uint16_t>(byte(place) | byte(place + 1) << 8U);
  }
  std::uint32_t u32(std::size_t place) const {
    return u16(place) | static_cast<std::uint32_t>(u16(place + 2)) << 16U;
  }
  unsigned byte(std::size_t place) const { return static_cast<unsigned char>(file_[place]); }

  // Where a sector's numbers begin; none where it is not whole in the file.
  std::optional<std::size_t> sectorPlace(std::uint32_t sector) const {
    const std::size_t place = (std::size_t{sector} + 1) * sector_;
    if (place > file_.size() || file_.size() - place < sector_) return std::nullopt;
    return place;
  }

  bool addTable(std::uint32_t sector) {
    const auto place = sectorPlace(sector);
    if (place) tables_.push_back(*place);
    return place.has_value();
  }

  // The header lists the first tables; a chain of sectors lists the others, its links last in each.
  bool readTables() {
    const std::uint32_t count = u32(kTableCount);
    std::uint32_t lists = u32(kListCount);
    if (count == 0 || count > sectors_ || lists > sectors_) return false;
    for (std::size_t index = 0; index < kHeaderTables && tables_.size() < count; ++index) {
      if (!addTable(u32(kList + index * 4))) return false;
    }
    for (std::uint32_t next = u32(kListStart); tables_.size() < count; --lists) {
      const auto place = sectorPlace(next);
      if (lists == 0 || !place) return false;
      const std::size_t link = *place + sector_ - 4;
      for (std::size_t at = *place; at < link && tables_.size() < count; at += 4) {
        if (!addTable(u32(at))) return false;
      }
      next = u32(link);
    }
    return true;
  }

  // The folder's sectors are a chain that ends.
  bool isFolderSound() const {
    const std::size_t most = kMostEntries * kEntryBytes / sector_;
    std::uint32_t sector = u32(kFolderStart);
    for (std::size_t count = 0; sector < kMostSectors; ++count) {
      const auto next = following(sector);
      const auto place = sectorPlace(sector);
      if (count == most || !next || !place || !areEntriesSound(*place)) return false;
      sector = *next;
    }
    return u32(kFolderStart) < kMostSectors && standsAlone(u32(kFolderStart));
  }

  // The root, the first entry, has no neighbours; the library loses those that it is said to have.
  bool standsAlone(std::uint32_t sector) const {
    const auto root = sectorPlace(sector);
    return root && u32(*root + kEntryBefore) == kNoEntry && u32(*root + kEntryBehind) == kNoEntry;
  }

  // No stream of this sector claims more bytes than the file has.
  bool areEntriesSound(std::size_t sectorPlace) const {
    for (std::size_t at = sectorPlace; at < sectorPlace + sector_; at += kEntryBytes) {
      if (byte(at + kEntryKind) == kStreamKind && u32(at + kEntrySize) > file_.size()) return false;
    }
    return true;
  }

  std::optional<std::uint32_t> following(std::uint32_t sector) const {
    const std::size_t inTable = sector_ / 4;
    if (sector / inTable >= tables_.size()) return std::nullopt;
    return u32(tables_[sector / inTable] + sector % inTable * 4);
  }

  std::string_view file_;
  std::size_t sector_ = 0;           // bytes
  std::size_t sectors_ = 0;          // of the file
  std::vector<std::size_t> tables_;  // where each part of the allocation table begins in the file
};

// The first record's number and length, as the versions 2, 3 and 4 begin.
bool isOldWorkbook(std::string_view file) {
  return file.starts_with(std::string_view("\x09\x00\x04\x00", 4)) ||
         file.starts_with(std::string_view("\x09\x02\x06\x00", 4)) ||
         file.starts_with(std::string_view("\x09\x04\x06\x00", 4));
}

}  // namespace

ContainerFault containerFault(std::string_view file) {
  if (isOldWorkbook(file)) return ContainerFault::kOldWorkbook;
  if (!file.starts_with(kMagic)) return ContainerFault::kNotCompound;
  return Container(file).isSound() ? ContainerFault::kNone : ContainerFault::kDamaged;
}

}  // namespace vireon::adapters
