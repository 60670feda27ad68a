#include "adapters/spreadsheet/container_check.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/adapters/spreadsheet/container_bytes.h"

namespace vireon::tests {
namespace {

using adapters::containerFault;
using adapters::ContainerFault;

std::string sound() {
  return containerOf("Workbook", std::string(5000, 'x')).bytes();
}

// A sound container with one number of its header replaced.
ContainerFault withHeader(std::size_t place, std::uint32_t value, unsigned size = 4) {
  std::string file = sound();
  put(file, place, value, size);
  return containerFault(file);
}

Container folderOf(std::size_t entries) {
  Container container{{{"Root Entry", 5, kNoSector, kNoSector, 1}}, {}};
  for (std::size_t index = 1; index < entries; ++index) {
    const auto next = static_cast<std::uint32_t>(index + 1);
    container.entries.push_back(
        {"s" + std::to_string(index), 2, kNoSector, index + 1 < entries ? next : kNoSector});
  }
  return container;
}

TEST(ContainerCheck, FindsNothingInASoundOne) {
  EXPECT_EQ(containerFault(sound()), ContainerFault::kNone);
  EXPECT_EQ(containerFault(containerOf("Workbook", std::string(9000000, 'x')).bytes().substr(0, 100)),
            ContainerFault::kDamaged);
}

TEST(ContainerCheck, ARootWithNeighbours) {
  for (const bool before : {true, false}) {
    Container container = folderOf(3);
    (before ? container.entries[0].left : container.entries[0].right) = 2;
    EXPECT_EQ(containerFault(container.bytes()), ContainerFault::kDamaged);
  }
  EXPECT_EQ(containerFault(folderOf(3).bytes()), ContainerFault::kNone);
}

TEST(ContainerCheck, HeaderOfAnotherShape) {
  EXPECT_EQ(withHeader(0, 0), ContainerFault::kNotCompound);
  EXPECT_EQ(withHeader(0x1C, 0xFEFF, 2), ContainerFault::kDamaged);
  for (const std::uint32_t shift : {0U, 6U, 8U, 10U, 13U, 31U, 32U, 65535U}) {
    EXPECT_EQ(withHeader(0x1E, shift, 2), ContainerFault::kDamaged) << shift;
  }
  for (const std::uint32_t shift : {0U, 5U, 7U, 9U, 65535U}) {
    EXPECT_EQ(withHeader(0x20, shift, 2), ContainerFault::kDamaged) << shift;
  }
}

TEST(ContainerCheck, CountsBeyondTheFile) {
  for (const std::uint32_t count : {0U, 2U, 1000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    EXPECT_EQ(withHeader(0x2C, count), ContainerFault::kDamaged) << count;  // allocation tables
  }
  for (const std::uint32_t count : {1000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    EXPECT_EQ(withHeader(0x40, count), ContainerFault::kDamaged) << count;  // of small sectors
    EXPECT_EQ(withHeader(0x48, count), ContainerFault::kDamaged) << count;  // lists of tables
  }
}

TEST(ContainerCheck, PlacesOutsideTheFile) {
  for (const std::uint32_t sector : {13U, 1000U, 0x7FFFFFFFU, 0xFFFFFFF9U, kEndOfChain, kNoSector}) {
    EXPECT_EQ(withHeader(0x30, sector), ContainerFault::kDamaged) << sector;  // the folder
    EXPECT_EQ(withHeader(0x4C, sector), ContainerFault::kDamaged) << sector;  // the first table
  }
}

TEST(ContainerCheck, FolderInACircle) {
  std::string file = sound();
  put(file, 512 + 4, 1);  // the folder's sector follows itself
  EXPECT_EQ(containerFault(file), ContainerFault::kDamaged);
}

TEST(ContainerCheck, FolderMayHaveSoManyEntriesAndNoMore) {
  EXPECT_EQ(containerFault(folderOf(adapters::kMostEntries).bytes()), ContainerFault::kNone);
  EXPECT_EQ(containerFault(folderOf(adapters::kMostEntries + 1).bytes()), ContainerFault::kDamaged);
}

TEST(ContainerCheck, TablesThatTheHeaderCannotListStandInAChain) {
  // 109 tables name 13952 sectors; the 110th is listed in a sector of its own, at the file's end.
  Container container = containerOf("Workbook", std::string(13900 * 512, 'x'));
  ASSERT_EQ(container.tables(), 110U);
  std::string file = container.bytes();
  const auto list = static_cast<std::uint32_t>(file.size() / 512 - 1);
  put(file, 0x44, list);
  put(file, 0x48, 1);
  std::string sector = littleEnd(109, 4);
  while (sector.size() < 508) sector += littleEnd(kNoSector, 4);
  file += sector + littleEnd(kEndOfChain, 4);
  EXPECT_EQ(containerFault(file), ContainerFault::kNone);

  std::string circle = file;
  put(circle, 0x2C, 240);                // more tables than the list has
  put(circle, circle.size() - 4, list);  // and it follows itself
  EXPECT_EQ(containerFault(circle), ContainerFault::kDamaged);
  std::string none = file;
  put(none, 0x48, 0);
  EXPECT_EQ(containerFault(none), ContainerFault::kDamaged);
}

}  // namespace
}  // namespace vireon::tests
