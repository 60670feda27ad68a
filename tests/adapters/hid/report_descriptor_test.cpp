#include "adapters/hid/report_descriptor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "tests/adapters/hid/sample_descriptors.h"

namespace vireon::tests {
namespace {

using adapters::ReportLayout;
using adapters::reportLayout;
using Bytes = std::vector<std::uint8_t>;

struct Case {
  std::string name;
  Bytes descriptor;
  std::size_t inputLength = 65;
  std::size_t outputLength = 65;
  bool inputNumbered = false;
};

template <std::size_t kSize>
Bytes bytesOf(const std::array<std::uint8_t, kSize>& sample) {
  return Bytes(sample.begin(), sample.end());
}

void expectLayouts(const std::vector<Case>& cases) {
  for (const Case& one : cases) {
    const ReportLayout layout = reportLayout(one.descriptor);

    EXPECT_EQ(layout.lengths.inputReportLength, one.inputLength) << one.name;
    EXPECT_EQ(layout.lengths.outputReportLength, one.outputLength) << one.name;
    EXPECT_EQ(layout.inputNumbered, one.inputNumbered) << one.name;
  }
}

bool isDefault(const ReportLayout& layout) {
  return layout.lengths.inputReportLength == 65 && layout.lengths.outputReportLength == 65 &&
         !layout.inputNumbered;
}

TEST(ReportDescriptorTest, GivesTheLongestReportOfEachDirectionAndOneByteForTheIdentifier) {
  expectLayouts({
      {"vendor, 64 bytes in and out", bytesOf(kVendor64), 65, 65, false},
      {"keyboard", bytesOf(kKeyboard), 9, 2, false},
      {"mouse, no output", bytesOf(kMouse), 4, 65, false},
      {"numbered reports", bytesOf(kNumbered), 9, 6, true},
      {"bits that fill no byte", {0x75, 0x01, 0x95, 0x09, 0x81, 0x02}, 3, 65, false},
      {"several fields add up", {0x75, 0x08, 0x95, 0x02, 0x81, 0x02, 0x81, 0x02, 0x91, 0x02}, 5, 3, false},
      {"count of two bytes", {0x75, 0x08, 0x96, 0x00, 0x02, 0x91, 0x02}, 65, 513, false},
      {"count of four bytes", {0x75, 0x08, 0x97, 0x00, 0x02, 0x00, 0x00, 0x81, 0x02}, 513, 65, false},
      {"feature reports do not count", {0x75, 0x08, 0x95, 0x7F, 0xB1, 0x02, 0x95, 0x03, 0x81, 0x02}, 4, 65},
      {"data that looks like an output",
       {0x75, 0x08, 0x95, 0x02, 0x27, 0x00, 0x00, 0x00, 0x90, 0x81, 0x02},
       3,
       65,
       false},
      {"items without data bytes", {0x75, 0x08, 0x95, 0x03, 0x80, 0x90}, 4, 4, false},
  });
}

TEST(ReportDescriptorTest, PushAndPopKeepTheGlobalItems) {
  expectLayouts({
      {"pop restores size and count",
       {0x75, 0x08, 0x95, 0x04, 0xA4, 0x75, 0x01, 0x95, 0x01, 0xB4, 0x81, 0x02},
       5,
       65,
       false},
      {"pop restores the identifier",
       {0x75, 0x08, 0x95, 0x02, 0x85, 0x01, 0x81, 0x02, 0xA4, 0x85, 0x02, 0x81, 0x02, 0xB4, 0x81, 0x02},
       5,
       65,
       true},
      {"pop of nothing makes it unreadable", {0x75, 0x08, 0x95, 0x02, 0x81, 0x02, 0xB4}},
  });
}

TEST(ReportDescriptorTest, LongItemsAreSkipped) {
  expectLayouts({
      {"data that looks like an input",
       {0x75, 0x08, 0x95, 0x02, 0xFE, 0x02, 0x10, 0x81, 0x02, 0x91, 0x02},
       65,
       3,
       false},
      {"no data", {0x75, 0x08, 0x95, 0x02, 0xFE, 0x00, 0x10, 0x81, 0x02}, 3, 65, false},
      {"cut in its head", {0x75, 0x08, 0x95, 0x02, 0x81, 0x02, 0xFE, 0x00}},
      {"cut in its data", {0x75, 0x08, 0x95, 0x02, 0x81, 0x02, 0xFE, 0x03, 0x10, 0x00, 0x00}},
  });
}

TEST(ReportDescriptorTest, TakesTheDefaultsWhereNothingIsDescribed) {
  expectLayouts({
      {"empty", {}},
      {"no fields", {0xA1, 0x01, 0xC0}},
      {"fields of no bits", {0x75, 0x08, 0x95, 0x00, 0x81, 0x02, 0x91, 0x02}},
      {"fields before any size", {0x81, 0x02, 0x91, 0x02}},
  });
}

TEST(ReportDescriptorTest, TakesTheDefaultsWhereTheDescriptorContradictsItself) {
  expectLayouts({
      {"identifier 0", {0x85, 0x00, 0x75, 0x08, 0x95, 0x02, 0x81, 0x02}},
      {"identifier 256", {0x86, 0x00, 0x01, 0x75, 0x08, 0x95, 0x02, 0x81, 0x02}},
      {"last item cut", {0x75, 0x08, 0x95, 0x02, 0x81, 0x02, 0x96, 0x01}},
      {"collection left open", {0xA1, 0x01, 0x75, 0x08, 0x95, 0x02, 0x81, 0x02}},
      {"collection closed twice", {0xA1, 0x01, 0x75, 0x08, 0x95, 0x02, 0x81, 0x02, 0xC0, 0xC0}},
  });
}

TEST(ReportDescriptorTest, TheLongestReportHas4096BytesWithItsIdentifier) {
  expectLayouts({
      {"4096 bytes", {0x75, 0x08, 0x96, 0xFF, 0x0F, 0x81, 0x02, 0x95, 0x02, 0x91, 0x02}, 4096, 3, false},
      {"4097 bytes", {0x75, 0x08, 0x96, 0x00, 0x10, 0x81, 0x02, 0x95, 0x02, 0x91, 0x02}},
      {"one bit too many", {0x75, 0x01, 0x97, 0xF9, 0x7F, 0x00, 0x00, 0x81, 0x02}},
      {"size and count of 32 ones", {0x77, 0xFF, 0xFF, 0xFF, 0xFF, 0x97, 0xFF, 0xFF, 0xFF, 0xFF, 0x91, 0x02}},
      {"too long in pieces", {0x75, 0x08, 0x96, 0xFF, 0x0F, 0x81, 0x02, 0x95, 0x01, 0x81, 0x02}},
  });
}

TEST(ReportDescriptorTest, TheLongestDescriptorHas4096Bytes) {
  Bytes descriptor{0x75, 0x08, 0x95, 0x02, 0x81, 0x02};
  descriptor.resize(4096, 0x00);
  EXPECT_EQ(reportLayout(descriptor).lengths.inputReportLength, 3U);

  descriptor.push_back(0x00);
  EXPECT_TRUE(isDefault(reportLayout(descriptor)));
}

TEST(ReportDescriptorTest, TakesTheDefaultsWhereverTheDescriptorIsCut) {
  for (const Bytes& whole : {bytesOf(kKeyboard), bytesOf(kMouse), bytesOf(kNumbered)}) {
    for (std::size_t length = 0; length < whole.size(); ++length) {
      const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
      EXPECT_TRUE(isDefault(reportLayout(cut))) << whole.size() << " cut at " << length;
    }
  }
}

void expectSaneLengths(const Bytes& descriptor) {
  const ReportLayout layout = reportLayout(descriptor);
  ASSERT_GE(layout.lengths.inputReportLength, 2U);
  ASSERT_LE(layout.lengths.inputReportLength, 4096U);
  ASSERT_GE(layout.lengths.outputReportLength, 2U);
  ASSERT_LE(layout.lengths.outputReportLength, 4096U);
}

TEST(ReportDescriptorTest, AnyBytesGiveSaneLengths) {
  std::mt19937 random(7310);
  for (int round = 0; round < 50'000; ++round) {
    Bytes descriptor(random() % 200);
    std::ranges::generate(descriptor, [&] { return static_cast<std::uint8_t>(random()); });
    expectSaneLengths(descriptor);
  }
}

TEST(ReportDescriptorTest, AnySpoiledByteGivesSaneLengths) {
  for (const Bytes& whole : {bytesOf(kVendor64), bytesOf(kKeyboard), bytesOf(kNumbered)}) {
    for (std::size_t position = 0; position < whole.size(); ++position) {
      for (unsigned value = 0; value < 256; ++value) {
        Bytes spoiled = whole;
        spoiled[position] = static_cast<std::uint8_t>(value);
        expectSaneLengths(spoiled);
      }
    }
  }
}

}  // namespace
}  // namespace vireon::tests
