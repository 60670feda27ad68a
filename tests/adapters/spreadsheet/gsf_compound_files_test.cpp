#include "adapters/spreadsheet/gsf_compound_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "files/import_rows.h"
#include "files/workbook_writer.h"
#include "tests/adapters/spreadsheet/container_bytes.h"
#include "tests/files/grid_text.h"

namespace vireon::tests {
namespace {

using adapters::GsfCompoundFiles;
using platform::PackError;
using platform::UnpackError;

constexpr std::size_t kLimit = files::kLargestWorkbook;

std::string patterned(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t index = 0; index < size; ++index)
    bytes[index] = static_cast<char>(index * 7 + index / 256);
  return bytes;
}

std::string packed(std::string_view workbook) {
  return GsfCompoundFiles().pack(workbook).file;
}

UnpackError errorOf(std::string_view file) {
  return GsfCompoundFiles().unpack(file, kLimit).error;
}

TEST(GsfCompoundFiles, StreamComesBackAsItWas) {
  GsfCompoundFiles compound;
  // Streams below 4096 bytes stand in small sectors of 64.
  for (const std::size_t size : {0UL, 1UL, 63UL, 64UL, 65UL, 511UL, 512UL, 513UL, 4095UL, 4096UL, 4097UL,
                                 65536UL, 65537UL, 8000000UL}) {
    const std::string workbook = patterned(size);
    const auto file = compound.pack(workbook);
    ASSERT_EQ(file.error, PackError::kNone);
    const auto back = compound.unpack(file.file, kLimit);
    EXPECT_EQ(back.error, UnpackError::kNone) << size;
    EXPECT_TRUE(back.workbook == workbook) << size;
  }
}

TEST(GsfCompoundFiles, SameBytesGiveTheSameContainer) {
  const std::string workbook = patterned(10000);
  EXPECT_TRUE(packed(workbook) == packed(workbook));
}

TEST(GsfCompoundFiles, WithoutTheLibraryNothingIsPackedOrUnpacked) {
  const std::string file = packed("x");
  for (const char* const other : {"libvireon-nothing.so", "libm.so.6"}) {
    GsfCompoundFiles compound(other);
    const auto result = compound.pack("x");
    EXPECT_EQ(result.error, PackError::kNoLibrary) << other;
    EXPECT_TRUE(result.file.empty());
    EXPECT_EQ(compound.unpack(file, kLimit).error, UnpackError::kNoLibrary) << other;
    EXPECT_EQ(compound.unpack("no container", kLimit).error, UnpackError::kNotCompound);
  }
}

TEST(GsfCompoundFiles, LongestStreamStillReads) {
  const std::string workbook(kLimit - kLimit / 64, 'x');
  const std::string file = packed(workbook);
  EXPECT_LE(file.size(), kLimit);
  EXPECT_TRUE(GsfCompoundFiles().unpack(file, kLimit).workbook == workbook);
}

TEST(GsfCompoundFiles, StreamLongerThanTheLimitIsRefused) {
  const std::string file = packed(patterned(5000));
  EXPECT_EQ(GsfCompoundFiles().unpack(file, 5000).error, UnpackError::kNone);
  EXPECT_EQ(GsfCompoundFiles().unpack(file, 4999).error, UnpackError::kTooLarge);
}

TEST(GsfCompoundFiles, OtherFilesAreNoContainers) {
  for (const std::string& file : {std::string(), std::string("R/No\tTime\r\n00001\t12:00:00\r\n"),
                                  std::string("\xD0\xCF\x11\xE0\xA1\xB1\x1A"), std::string(5000, '\0')}) {
    EXPECT_EQ(errorOf(file), UnpackError::kNotCompound);
  }
}

TEST(GsfCompoundFiles, NameOfTheStreamIsComparedWithoutCase) {
  for (const char* name : {"Workbook", "WORKBOOK", "workbook"}) {
    EXPECT_EQ(errorOf(containerOf(name, patterned(5000)).bytes()), UnpackError::kNone);
  }
}

TEST(GsfCompoundFiles, HandmadeContainerGivesItsStream) {
  const std::string workbook = patterned(300000);
  EXPECT_TRUE(GsfCompoundFiles().unpack(containerOf("Workbook", workbook).bytes(), kLimit).workbook ==
              workbook);
}

TEST(GsfCompoundFiles, ContainersOfOtherThings) {
  EXPECT_EQ(errorOf(containerOf("WordDocument", patterned(5000)).bytes()), UnpackError::kNoWorkbook);
  EXPECT_EQ(errorOf(containerOf("Workbook2", patterned(5000)).bytes()), UnpackError::kNoWorkbook);
  EXPECT_EQ(errorOf(Container{{{"Root Entry", 5}}, {}}.bytes()), UnpackError::kNoWorkbook);
}

TEST(GsfCompoundFiles, OlderWorkbooks) {
  EXPECT_EQ(errorOf(containerOf("Book", patterned(5000)).bytes()), UnpackError::kOldWorkbook);
  EXPECT_EQ(errorOf(std::string("\x09\x00\x04\x00\x02\x00\x10\x00", 8)), UnpackError::kOldWorkbook);
  EXPECT_EQ(errorOf(std::string("\x09\x02\x06\x00\x00\x00\x10\x00", 8)), UnpackError::kOldWorkbook);
  EXPECT_EQ(errorOf(std::string("\x09\x04\x06\x00\x00\x00\x10\x00", 8)), UnpackError::kOldWorkbook);
}

TEST(GsfCompoundFiles, WorkbookBesideAnOlderOneCounts) {
  Container both = containerOf("Workbook", patterned(5000));
  both.entries[1].right = 2;
  both.entries.push_back({"Book"});
  both.entries[1].start = both.dataStart();
  EXPECT_EQ(errorOf(both.bytes()), UnpackError::kNone);
}

TEST(GsfCompoundFiles, StorageOfThatNameIsNoWorkbook) {
  Container container = containerOf("Workbook", patterned(5000));
  container.entries[1].kind = 1;
  EXPECT_EQ(errorOf(container.bytes()), UnpackError::kNoWorkbook);
}

TEST(GsfCompoundFiles, StreamThatClaimsMoreThanTheFileHasIsDamaged) {
  for (const std::uint32_t size : {5600U, 100000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    Container container = containerOf("Workbook", patterned(5000));
    container.entries[1].size = size;
    EXPECT_EQ(errorOf(container.bytes()), UnpackError::kDamaged) << size;
  }
}

TEST(GsfCompoundFiles, StreamWhoseSectorsRunInACircleIsDamaged) {
  Container container = containerOf("Workbook", patterned(5000));
  std::string file = container.bytes();
  put(file, 512 + 4 * (container.dataStart() + 3), container.dataStart());
  EXPECT_EQ(errorOf(file), UnpackError::kDamaged);
}

TEST(GsfCompoundFiles, FileCutOffAtAnySectorIsNotRead) {
  const std::string workbook = files::writeWorkbookStream(sheetOf(loggerGrid(500))).stream;
  const std::string file = packed(workbook);
  for (std::size_t length = 0; length < file.size(); length += 512) {
    const auto result = GsfCompoundFiles().unpack(file.substr(0, length), kLimit);
    ASSERT_NE(result.error, UnpackError::kNone) << length;
    ASSERT_TRUE(result.workbook.empty());
  }
}

TEST(GsfCompoundFiles, SmallFileCutOffAtAnyByteIsNotReadOrWhole) {
  const std::string workbook = files::writeWorkbookStream(sheetOf(loggerGrid(2))).stream;
  const std::string file = packed(workbook);
  for (std::size_t length = 0; length < file.size(); ++length) {
    const auto result = GsfCompoundFiles().unpack(std::string_view(file).substr(0, length), kLimit);
    ASSERT_TRUE(result.error != UnpackError::kNone || result.workbook == workbook) << length;
  }
}

TEST(GsfCompoundFiles, SpoiltByteDoesNoHarmAndSaysNothing) {
  const std::string file = packed(files::writeWorkbookStream(sheetOf(loggerGrid(2))).stream);
  testing::internal::CaptureStderr();
  for (std::size_t place = 0; place < file.size(); ++place) {
    for (const int bits : {0x01, 0x80, 0xFF}) {
      std::string spoilt = file;
      spoilt[place] = static_cast<char>(spoilt[place] ^ bits);
      const auto result = GsfCompoundFiles().unpack(spoilt, kLimit);
      ASSERT_LE(result.workbook.size(), file.size());
      if (result.error == UnpackError::kNone) {
        const auto rows = files::importRows(result.workbook);
        ASSERT_TRUE(rows.error == files::WorkbookReadError::kNone || rows.rows.empty());
      }
    }
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace vireon::tests
