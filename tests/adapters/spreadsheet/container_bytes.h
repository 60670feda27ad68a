#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Compound files put together by hand, sectors of 512 bytes.
namespace vireon::tests {

inline constexpr std::uint32_t kNoSector = 0xFFFFFFFF;
inline constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
inline constexpr std::uint32_t kTableSector = 0xFFFFFFFD;

inline std::string littleEnd(std::uint64_t value, unsigned size) {
  std::string bytes;
  for (unsigned index = 0; index < size; ++index) bytes += static_cast<char>(value >> (8U * index));
  return bytes;
}

// Writes a number over a place.
inline void put(std::string& bytes, std::size_t place, std::uint32_t value, unsigned size = 4) {
  bytes.replace(place, size, littleEnd(value, size));
}

struct Entry {
  std::string name;
  unsigned kind = 2;  // 5 the root, 1 a storage, 2 a stream
  std::uint32_t left = kNoSector;
  std::uint32_t right = kNoSector;
  std::uint32_t child = kNoSector;
  std::uint32_t start = kEndOfChain;
  std::uint32_t size = 0;
};

inline std::string entryBytes(const Entry& entry) {
  std::string bytes;
  for (const char letter : entry.name) bytes += {letter, '\0'};
  bytes.resize(64);
  bytes += littleEnd(entry.name.size() * 2 + 2, 2) + littleEnd(entry.kind, 1) + littleEnd(1, 1);
  bytes += littleEnd(entry.left, 4) + littleEnd(entry.right, 4) + littleEnd(entry.child, 4);
  bytes += std::string(36, '\0') + littleEnd(entry.start, 4) + littleEnd(entry.size, 4) + littleEnd(0, 4);
  return bytes;
}

// The allocation table comes first, then the folder, then `data` as the sectors behind. The folder's chain is
// in order; `data` is one chain. Places: table sector 0, folder from sector tables().
struct Container {
  std::vector<Entry> entries;
  std::string data;

  std::size_t folderSectors() const { return (entries.size() + 3) / 4; }
  std::size_t dataSectors() const { return (data.size() + 511) / 512; }
  std::size_t tables() const { return (folderSectors() + dataSectors()) / 127 + 1; }
  std::uint32_t dataStart() const { return static_cast<std::uint32_t>(tables() + folderSectors()); }

  std::string bytes() const {
    std::string table;
    for (std::size_t index = 0; index < tables(); ++index) table += littleEnd(kTableSector, 4);
    addChain(table, tables(), folderSectors());
    addChain(table, dataStart(), dataSectors());
    while (table.size() < tables() * 512) table += littleEnd(kNoSector, 4);
    std::string folder;
    for (const Entry& entry : entries) folder += entryBytes(entry);
    folder.resize(folderSectors() * 512);
    std::string content = data;
    content.resize(dataSectors() * 512);
    return header() + table + folder + content;
  }

 private:
  static void addChain(std::string& table, std::size_t start, std::size_t count) {
    for (std::size_t index = 1; index <= count; ++index) {
      table += littleEnd(index == count ? kEndOfChain : start + index, 4);
    }
  }

  std::string header() const {
    std::string bytes = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + std::string(16, '\0');
    bytes += littleEnd(0x3E, 2) + littleEnd(3, 2) + littleEnd(0xFFFE, 2) + littleEnd(9, 2) + littleEnd(6, 2);
    bytes.resize(0x2C);
    bytes += littleEnd(tables(), 4) + littleEnd(tables(), 4) + littleEnd(0, 4) + littleEnd(4096, 4);
    bytes += littleEnd(kEndOfChain, 4) + littleEnd(0, 4) + littleEnd(kEndOfChain, 4) + littleEnd(0, 4);
    for (std::size_t index = 0; index < 109; ++index) {
      bytes += littleEnd(index < tables() ? index : kNoSector, 4);
    }
    return bytes;
  }
};

// One stream of that name.
inline Container containerOf(const std::string& name, std::string data) {
  Container container{{{"Root Entry", 5, kNoSector, kNoSector, 1}, {name}}, std::move(data)};
  container.entries[1].start = container.dataStart();
  container.entries[1].size = static_cast<std::uint32_t>(container.data.size());
  return container;
}

}  // namespace vireon::tests
