#include "capture/bmp_file.h"

#include <gtest/gtest.h>

#include "tests/capture/bmp_bytes.h"

namespace vireon::tests {
namespace {

using capture::BmpError;
using capture::bmpFile;
using capture::readBmp;
using platform::Bitmap;

constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kGreen = 0x00FF00;
constexpr std::uint32_t kBlue = 0x0000FF;

const std::string kThreeColors = raw({0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0});  // red, green, blue

struct Readable {
  const char* name;
  BmpBytes bytes;
  Bitmap bitmap;
};

class ReadBmp : public testing::TestWithParam<Readable> {};

TEST_P(ReadBmp, GivesThePicture) {
  const capture::BmpResult result = readBmp(GetParam().bytes.file());
  EXPECT_EQ(result.error, BmpError::kNone);
  EXPECT_EQ(result.bitmap, GetParam().bitmap);
}

BmpBytes plain(int width, int height, unsigned bits, std::string data, std::string colors = "") {
  BmpBytes bytes;
  bytes.width = width;
  bytes.height = height;
  bytes.bits = bits;
  bytes.data = std::move(data);
  bytes.colors = std::move(colors);
  return bytes;
}

BmpBytes withHeader(std::uint32_t size, BmpBytes bytes) {
  bytes.headerSize = size;
  return bytes;
}

BmpBytes withColors(std::uint32_t used, BmpBytes bytes) {
  bytes.colorsUsed = used;
  return bytes;
}

BmpBytes fields(std::uint32_t compression, unsigned bits, const std::vector<int>& masks, std::string data) {
  BmpBytes bytes = plain(1, 1, bits, std::move(data));
  bytes.compression = compression;
  bytes.masks = raw(masks);
  return bytes;
}

BmpBytes runs(int width, int height, unsigned bits, const std::vector<int>& data) {
  BmpBytes bytes = plain(width, height, bits, raw(data), kThreeColors);
  bytes.compression = bits == 8 ? 1 : 2;
  return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Plain, ReadBmp,
    testing::Values(
        Readable{"Bits24FromTheBottomRowPadded",
                 plain(1, 2, 24, raw({255, 0, 0, 99, 0, 0, 255, 99})),
                 {1, 2, {kRed, kBlue}}},
        Readable{
            "Bits24Downwards", plain(1, -2, 24, raw({255, 0, 0, 99, 0, 0, 255, 99})), {1, 2, {kBlue, kRed}}},
        Readable{"Bits24LastPaddingMissing", plain(1, 1, 24, raw({1, 2, 3})), {1, 1, {0x030201}}},
        Readable{"Bits32TransparencyLeftOut",
                 plain(2, 1, 32, raw({1, 2, 3, 77, 255, 0, 0, 0})),
                 {2, 1, {0x030201, kBlue}}},
        Readable{"Bits16FiveEach", plain(2, 1, 16, raw({0x00, 0x7C, 0xE0, 0x03})), {2, 1, {kRed, kGreen}}},
        Readable{"Bits8", plain(3, 1, 8, raw({2, 0, 1, 0}), kThreeColors), {3, 1, {kBlue, kRed, kGreen}}},
        Readable{
            "Bits8OutsideTheTableIsBlack", plain(2, 1, 8, raw({3, 255, 0, 0}), kThreeColors), {2, 1, {0, 0}}},
        Readable{"Bits8ShortTable",
                 withColors(1, plain(2, 1, 8, raw({0, 1, 0, 0}), kThreeColors)),
                 {2, 1, {kRed, 0}}},
        Readable{"Bits4HighHalfFirst",
                 plain(3, 1, 4, raw({0x12, 0x00, 0, 0}), kThreeColors),
                 {3, 1, {kGreen, kBlue, kRed}}},
        Readable{"Bits1HighBitFirst",
                 plain(9, 1, 1, raw({0x80, 0x80, 0, 0}), kThreeColors),
                 {9, 1, {kGreen, kRed, kRed, kRed, kRed, kRed, kRed, kRed, kGreen}}},
        Readable{"OldestHeader",
                 withHeader(12, plain(1, 1, 8, raw({1, 0, 0, 0}), raw({0, 0, 255, 0, 255, 0}))),
                 {1, 1, {kGreen}}},
        Readable{"OldestHeader24", withHeader(12, plain(1, 1, 24, raw({1, 2, 3, 0}))), {1, 1, {0x030201}}},
        Readable{"LongHeader", withHeader(124, plain(1, 1, 24, raw({1, 2, 3, 0}))), {1, 1, {0x030201}}}),
    [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(
    BitFields, ReadBmp,
    testing::Values(
        Readable{"SixBitsOfGreen",
                 fields(3, 16, {0, 0xF8, 0, 0, 0xE0, 0x07, 0, 0, 0x1F, 0, 0, 0}, raw({0xE0, 0x07, 0, 0})),
                 {1, 1, {kGreen}}},
        Readable{"NarrowFieldsRepeatTheirBits",
                 fields(3, 16, {0, 0x0F, 0, 0, 0xE0, 0, 0, 0, 1, 0, 0, 0}, raw({0x41, 0x0A, 0, 0})),
                 {1, 1, {0xAA49FF}}},
        Readable{"RedLowest",
                 fields(3, 32, {255, 0, 0, 0, 0, 255, 0, 0, 0, 0, 255, 0}, raw({10, 20, 30, 40})),
                 {1, 1, {0x0A141E}}},
        Readable{
            "WithTransparency",
            fields(6, 32, {0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0, 0, 0, 0, 255}, raw({10, 20, 30, 40})),
            {1, 1, {0x1E140A}}},
        Readable{
            "TenBitsEach",
            fields(3, 32, {0, 0, 0xF0, 0x3F, 0, 0xFC, 0x0F, 0, 0xFF, 0x03, 0, 0}, raw({0, 0, 0xF0, 0x3F})),
            {1, 1, {kRed}}},
        Readable{"AColourWithoutAField",
                 fields(3, 16, {0, 0, 0, 0, 0, 0, 0, 0, 0x1F, 0, 0, 0}, raw({0xFF, 0xFF})),
                 {1, 1, {kBlue}}}),
    [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(
    RunLengths, ReadBmp,
    testing::Values(
        Readable{"Runs8FromTheBottom",
                 runs(2, 2, 8, {2, 1, 0, 0, 1, 2, 1, 0, 0, 1}),
                 {2, 2, {kBlue, kRed, kGreen, kGreen}}},
        Readable{"Runs4Alternate", runs(3, 1, 4, {3, 0x12, 0, 1}), {3, 1, {kGreen, kBlue, kGreen}}},
        Readable{"Pixels8OneByOne", runs(3, 1, 8, {0, 3, 0, 1, 2, 99, 0, 1}), {3, 1, {kRed, kGreen, kBlue}}},
        Readable{"Pixels4OneByOne", runs(3, 1, 4, {0, 3, 0x01, 0x20, 0, 1}), {3, 1, {kRed, kGreen, kBlue}}},
        Readable{"Move", runs(2, 2, 8, {0, 2, 1, 1, 1, 2, 0, 1}), {2, 2, {0, kBlue, 0, 0}}},
        Readable{"EndsWithItsLastRow", runs(1, 1, 8, {1, 2, 0, 0}), {1, 1, {kBlue}}},
        Readable{"MoreThanARowIsCut", runs(1, 1, 8, {255, 1, 0, 1}), {1, 1, {kGreen}}},
        Readable{"MovedOutIsCut", runs(1, 1, 8, {0, 2, 255, 255, 1, 1, 0, 1}), {1, 1, {0}}}),
    [](const auto& test) { return test.param.name; });

struct Unreadable {
  const char* name;
  std::string file;
  BmpError error;
};

class ReadBmpFails : public testing::TestWithParam<Unreadable> {};

TEST_P(ReadBmpFails, AndTellsWhy) {
  const capture::BmpResult result = readBmp(GetParam().file);
  EXPECT_EQ(result.error, GetParam().error);
  EXPECT_TRUE(result.bitmap.empty());
}

BmpBytes compressed(std::uint32_t compression, BmpBytes bytes) {
  bytes.compression = compression;
  return bytes;
}

std::string withDataAt(int offset) {
  std::string file = plain(1, 1, 24, raw({1, 2, 3, 0})).file();
  file[10] = static_cast<char>(offset);
  return file;
}

const std::string kPixel = raw({1, 2, 3, 0});
constexpr std::int32_t kLowest = -2147483647 - 1;

INSTANTIATE_TEST_SUITE_P(
    All, ReadBmpFails,
    testing::Values(
        Unreadable{"Empty", "", BmpError::kNoBitmap}, Unreadable{"OtherBeginning", "BA", BmpError::kNoBitmap},
        Unreadable{"HeaderOfNoKnownSize", withHeader(39, plain(1, 1, 24, kPixel)).file(), BmpError::kDamaged},
        Unreadable{"NoWidth", plain(0, 1, 24, kPixel).file(), BmpError::kDamaged},
        Unreadable{"NegativeWidth", plain(-1, 1, 24, kPixel).file(), BmpError::kDamaged},
        Unreadable{"NoHeight", plain(1, 0, 24, kPixel).file(), BmpError::kDamaged},
        Unreadable{"LowestHeight", plain(1, kLowest, 24, kPixel).file(), BmpError::kTooLarge},
        Unreadable{"MorePixelsThanAllowed", plain(8192, 8193, 24, kPixel).file(), BmpError::kTooLarge},
        Unreadable{"AsManyPixelsAsAllowedButNotThere", plain(8192, 8192, 24, kPixel).file(),
                   BmpError::kDamaged},
        Unreadable{"Bits2", plain(1, 1, 2, kPixel).file(), BmpError::kUnsupported},
        Unreadable{"Bits0", plain(1, 1, 0, kPixel).file(), BmpError::kUnsupported},
        Unreadable{"JpegInside", compressed(4, plain(1, 1, 24, kPixel)).file(), BmpError::kUnsupported},
        Unreadable{"Runs8Of24Bits", compressed(1, plain(1, 1, 24, kPixel)).file(), BmpError::kUnsupported},
        Unreadable{"Runs4Of8Bits", compressed(2, plain(1, 1, 8, kPixel)).file(), BmpError::kUnsupported},
        Unreadable{"RunsDownwards", compressed(1, plain(1, -1, 8, kPixel)).file(), BmpError::kUnsupported},
        Unreadable{"FieldsOf24Bits", compressed(3, plain(1, 1, 24, kPixel)).file(), BmpError::kUnsupported},
        Unreadable{"FieldInPieces", fields(3, 16, {5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, kPixel).file(),
                   BmpError::kUnsupported},
        Unreadable{"DataInsideTheHeader", withDataAt(53), BmpError::kDamaged},
        Unreadable{"DataBehindTheEnd", withDataAt(59), BmpError::kDamaged},
        Unreadable{"ARowShort", plain(1, 2, 24, raw({1, 2, 3, 0, 1, 2})).file(), BmpError::kDamaged},
        Unreadable{"RunsWithoutAnEnd", runs(2, 1, 8, {2, 1}).file(), BmpError::kDamaged},
        Unreadable{"MoveCut", runs(2, 2, 8, {0, 2, 1}).file(), BmpError::kDamaged},
        Unreadable{"PixelsCut", runs(3, 1, 8, {0, 3, 1, 2}).file(), BmpError::kDamaged}),
    [](const auto& test) { return test.param.name; });

Bitmap pattern(int width, int height) {
  Bitmap bitmap = platform::blackBitmap(width, height);
  std::uint32_t value = 0x123456;
  for (std::uint32_t& pixel : bitmap.pixels) pixel = (value = value * 75 + 74) & 0xFFFFFFU;
  return bitmap;
}

TEST(BmpFile, IsReadBackWithTheSamePixels) {
  for (int width = 1; width <= 9; ++width) {
    const Bitmap bitmap = pattern(width, 10 - width);
    EXPECT_EQ(readBmp(bmpFile(bitmap)).bitmap, bitmap) << width;
  }
}

TEST(BmpFile, WithMorePixelsThanAskedForItIsTooLarge) {
  const std::string file = bmpFile(pattern(3, 2));
  EXPECT_EQ(readBmp(file, 6).bitmap, pattern(3, 2));
  EXPECT_EQ(readBmp(file, 5).error, BmpError::kTooLarge);
}

TEST(BmpFile, IsAStandardOneOf24BitsFromTheBottom) {
  const std::string file = bmpFile({1, 2, {0x010203, 0x040506}});
  EXPECT_EQ(file, raw({'B',  'M',  62, 0, 0,    0,    0, 0, 0, 0, 54, 0, 0, 0,  // size 62, pixels at 54
                       40,   0,    0,  0, 1,    0,    0, 0, 2, 0, 0,  0,        // width 1, height 2
                       1,    0,    24, 0, 0,    0,    0, 0, 8, 0, 0,  0,        // 24 bits, plain, 8 bytes
                       0xC4, 0x0E, 0,  0, 0xC4, 0x0E, 0, 0,                     // 96 dots per inch
                       0,    0,    0,  0, 0,    0,    0, 0,                     // no colour table
                       6,    5,    4,  0, 3,    2,    1, 0}));                  // blue, green, red, padding
}

TEST(BmpFile, CutAnywhereItIsDamagedOrNoBitmap) {
  const std::string file = bmpFile(pattern(3, 2));  // 3 bytes of padding end it
  for (std::size_t length = 0; length < file.size() - 3; ++length) {
    const capture::BmpResult result = readBmp(std::string_view(file).substr(0, length));
    EXPECT_EQ(result.error, length < 2 ? BmpError::kNoBitmap : BmpError::kDamaged) << length;
    EXPECT_TRUE(result.bitmap.empty()) << length;
  }
}

TEST(BmpFile, EachBitTurnedItGivesAPictureOrAnError) {
  for (const std::string& file :
       {bmpFile(pattern(3, 2)), runs(3, 2, 8, {3, 1, 0, 0, 0, 3, 0, 1, 2, 0, 0, 1}).file(),
        runs(3, 1, 4, {0, 3, 0x01, 0x20, 0, 1}).file()}) {
    for (std::size_t bit = 0; bit < 8 * file.size(); ++bit) {
      std::string spoilt = file;
      spoilt[bit / 8] = static_cast<char>(spoilt[bit / 8] ^ 1 << bit % 8);
      const capture::BmpResult result = readBmp(spoilt);
      EXPECT_EQ(result.bitmap.empty(), result.error != BmpError::kNone) << bit;
      EXPECT_EQ(result.bitmap.pixels.size(), static_cast<std::size_t>(result.bitmap.width) *
                                                 static_cast<std::size_t>(result.bitmap.height))
          << bit;
    }
  }
}

}  // namespace
}  // namespace vireon::tests
