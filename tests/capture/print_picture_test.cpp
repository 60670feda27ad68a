#include "capture/print_picture.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_message_boxes.h"
#include "tests/fakes/fake_printer.h"

namespace vireon::tests {
namespace {

struct Case {
  const char* name;
  double pictureWidth;
  double pictureHeight;
  platform::PrintArea page;
  platform::PrintArea printed;
};

class FitToPage : public testing::TestWithParam<Case> {};

TEST_P(FitToPage, FillsOneSideAndKeepsTheProportions) {
  const Case& given = GetParam();
  const platform::PrintArea size = capture::fitToPage(given.pictureWidth, given.pictureHeight, given.page);
  EXPECT_DOUBLE_EQ(size.width, given.printed.width);
  EXPECT_DOUBLE_EQ(size.height, given.printed.height);
}

INSTANTIATE_TEST_SUITE_P(
    All, FitToPage,
    testing::Values(Case{"WideAndShort", 800, 200, {10000, 15000}, {10000, 2500}},
                    Case{"TallAndNarrow", 100, 400, {10000, 15000}, {3750, 15000}},
                    Case{"ThePagesProportions", 200, 300, {10000, 15000}, {10000, 15000}},
                    Case{"SquareOnAnUprightPage", 50, 50, {10000, 15000}, {10000, 10000}},
                    Case{"SquareOnALyingPage", 50, 50, {15000, 10000}, {10000, 10000}},
                    Case{"OnePixel", 1, 1, {10000, 15000}, {10000, 10000}},
                    Case{"OneRow", 1920, 1, {9600, 15000}, {9600, 5}},
                    Case{"OneColumn", 1, 1000, {9600, 15000}, {15, 15000}},
                    Case{"SmallerThanThePageGrows", 4, 1, {10000, 15000}, {10000, 2500}}),
    [](const auto& test) { return test.param.name; });

// Proportions that no binary fraction holds exactly: the width is the page's to the last bit.
TEST(FitToPageTie, FitsTheWidth) {
  for (int scale = 1; scale < 200; ++scale) {
    const platform::PrintArea page{1.0 * scale, 49.0 * scale};
    EXPECT_EQ(capture::fitToPage(10, 490, page).width, page.width) << scale;
  }
}

TEST(PrtPicFit, DrawsAtTheCornerOfTheFirstPage) {
  FakePrinter printer;
  FakeMessageBoxes messages;
  const capture::Picture picture = capture::mkBmpPic({2, 1, {1, 2}});
  EXPECT_TRUE(capture::prtPicFit(*printer.begin(), picture, messages));
  ASSERT_EQ(printer.pages.size(), 1U);
  ASSERT_EQ(printer.pages[0].pictures.size(), 1U);
  const FakePrinter::Drawn& drawn = printer.pages[0].pictures[0];
  EXPECT_EQ(drawn.bitmap, picture.bitmap);
  EXPECT_EQ(drawn.x, 0);
  EXPECT_EQ(drawn.y, 0);
  EXPECT_DOUBLE_EQ(drawn.height, printer.area.height);
  EXPECT_DOUBLE_EQ(drawn.width, 2 * printer.area.height);
  EXPECT_EQ(messages.count(), 0U);
}

TEST(PrtPicFit, AnEmptyPictureGivesTheMessageAndDrawsNothing) {
  for (const platform::Bitmap& empty :
       {platform::Bitmap{}, platform::Bitmap{0, 5, {}}, platform::Bitmap{5, 0, {}}}) {
    FakePrinter printer;
    FakeMessageBoxes messages;
    EXPECT_FALSE(capture::prtPicFit(*printer.begin(), capture::mkBmpPic(empty), messages));
    EXPECT_TRUE(printer.pages[0].pictures.empty());
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastText(), "No Picture in Window.");
    EXPECT_EQ(messages.lastTitle(), "Capture Active Window");
    EXPECT_EQ(messages.shown[0].icon, platform::MessageIcon::kInformation);
  }
}

}  // namespace
}  // namespace vireon::tests
