#include "adapters/qt/text.h"

#include <gtest/gtest.h>

#include "form/text_encoding.h"

namespace vireon::adapters {
namespace {

TEST(Text, EveryByteIsOneCharacterAndComesBack) {
  for (int code = 0; code < 256; ++code) {
    const std::string byte(1, static_cast<char>(code));
    ASSERT_EQ(shown(byte).size(), 1) << code;
    EXPECT_EQ(form::text1252FromUtf8(typed(shown(byte))).text, byte) << code;
  }
}

TEST(Text, BytesAbove127AreCharactersOfCodePage1252) {
  EXPECT_EQ(shown("\x80").at(0).unicode(), 0x20AC);  // euro sign
  EXPECT_EQ(shown("\xB5").at(0).unicode(), 0x00B5);  // micro sign
  EXPECT_EQ(shown("\x9F").at(0).unicode(), 0x0178);  // Y with diaeresis
}

TEST(Text, WhatIsTypedIsUtf8AndCellsAreShownFromIt) {
  const QString text = QStringLiteral("\u03A9\u00B5");  // ohm, micro
  EXPECT_EQ(typed(text), "\xCE\xA9\xC2\xB5");
  EXPECT_EQ(shownUtf8(typed(text)), text);
}

}  // namespace
}  // namespace vireon::adapters
