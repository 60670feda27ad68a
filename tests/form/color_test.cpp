#include "form/color.h"

#include <gtest/gtest.h>

namespace vireon::form {
namespace {

struct ColorCase {
  const char* name;
  Color color;
  std::uint32_t value;
  int red;
  int green;
  int blue;
};

class NamedColor : public testing::TestWithParam<ColorCase> {};

TEST_P(NamedColor, HasRedInTheLowByte) {
  const ColorCase& expected = GetParam();
  EXPECT_EQ(expected.color.value, expected.value);
  EXPECT_EQ(expected.color.red(), expected.red);
  EXPECT_EQ(expected.color.green(), expected.green);
  EXPECT_EQ(expected.color.blue(), expected.blue);
  EXPECT_FALSE(expected.color.isSystem());
}

INSTANTIATE_TEST_SUITE_P(Palette, NamedColor,
                         testing::Values(ColorCase{"Black", kBlack, 0, 0, 0, 0},
                                         ColorCase{"Red", kRed, 255, 255, 0, 0},
                                         ColorCase{"Green", kGreen, 65280, 0, 255, 0},
                                         ColorCase{"Yellow", kYellow, 0xFFFF, 255, 255, 0},
                                         ColorCase{"LightGreen", kLightGreen, 8454016, 128, 255, 128},
                                         ColorCase{"LightRed", kLightRed, 8421631, 255, 128, 128},
                                         ColorCase{"White", kWhite, 16777215, 255, 255, 255}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST(Color, TheDesktopsOwnColoursHaveTheHighBit) {
  EXPECT_TRUE(kButtonText.isSystem());
  EXPECT_TRUE(kButtonFace.isSystem());
  EXPECT_EQ(kButtonText.value, 0x80000012U);
  EXPECT_EQ(kButtonFace.value, 0x8000000FU);
}

}  // namespace
}  // namespace vireon::form
