#include "form/utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace vireon::form {
namespace {

std::vector<char32_t> charactersOf(std::string_view text) {
  std::vector<char32_t> characters;
  while (!text.empty()) characters.push_back(takeCharacter(text));
  return characters;
}

TEST(Utf8, EveryCharacterSurvivesBothWays) {
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    if (character == 0xD800) character = 0xE000;
    std::string text;
    appendUtf8(text, character);
    ASSERT_EQ(charactersOf(text), std::vector<char32_t>{character});
  }
}

TEST(Utf8, ByteThatBelongsToNoCharacterIsReplaced) {
  const char32_t bad = kReplacement;
  EXPECT_EQ(charactersOf("\x80"), std::vector({bad}));
  EXPECT_EQ(charactersOf("\xFF"), std::vector({bad}));
  EXPECT_EQ(charactersOf("\xC3"), std::vector({bad}));
  EXPECT_EQ(charactersOf("\xE2\x82"), (std::vector<char32_t>{bad, bad}));
  EXPECT_EQ(charactersOf("\xC3"
                         "a"),
            (std::vector<char32_t>{bad, U'a'}));
}

TEST(Utf8, OverlongAndHalfCharactersAreReplaced) {
  for (const char* text :
       {"\xC0\x80", "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xED\xA0\x80", "\xED\xB0\x80", "\xF4\x90\x80\x80"}) {
    EXPECT_EQ(charactersOf(text).front(), kReplacement);
  }
}

}  // namespace
}  // namespace vireon::form
