#include "adapters/qt/text.h"

#include <gtest/gtest.h>

namespace vireon::adapters {
namespace {

TEST(Text, EveryByteIsOneCharacterAndComesBack) {
  for (int code = 0; code < 256; ++code) {
    const std::string byte(1, static_cast<char>(code));
    ASSERT_EQ(shown(byte).size(), 1) << code;
    EXPECT_EQ(typed(shown(byte)), byte) << code;
  }
}

TEST(Text, BytesAbove127AreCharactersOfCodePage1252) {
  EXPECT_EQ(shown("\x80").at(0).unicode(), 0x20AC);  // euro sign
  EXPECT_EQ(shown("\xB5").at(0).unicode(), 0x00B5);  // micro sign
  EXPECT_EQ(shown("\x9F").at(0).unicode(), 0x0178);  // Y with diaeresis
}

TEST(Text, ACharacterOutsideTheCodePageBecomesAQuestionMark) {
  EXPECT_EQ(typed(QStringLiteral("\u03A9")), "?");  // ohm
}

}  // namespace
}  // namespace vireon::adapters
