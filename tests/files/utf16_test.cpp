#include "files/utf16.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace vireon::tests {
namespace {

std::vector<char32_t> charactersOf(std::string_view text) {
  std::vector<char32_t> characters;
  while (!text.empty()) characters.push_back(files::takeCharacter(text));
  return characters;
}

std::string decoded(std::u16string_view units) {
  std::string out;
  files::Utf16Decoder decoder(out);
  for (const char16_t unit : units) decoder.add(unit);
  decoder.finish();
  return out;
}

TEST(Utf16, EveryCharacterSurvivesBothWays) {
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    if (character == 0xD800) character = 0xE000;
    std::string text;
    files::appendUtf8(text, character);
    ASSERT_EQ(charactersOf(text), std::vector<char32_t>{character});
  }
}

TEST(Utf16, ByteThatBelongsToNoCharacterIsReplaced) {
  const char32_t bad = files::kReplacement;
  EXPECT_EQ(charactersOf("\x80"), std::vector({bad}));
  EXPECT_EQ(charactersOf("\xFF"), std::vector({bad}));
  EXPECT_EQ(charactersOf("\xC3"), std::vector({bad}));
  EXPECT_EQ(charactersOf("\xE2\x82"), (std::vector<char32_t>{bad, bad}));
  EXPECT_EQ(charactersOf("\xC3"
                         "a"),
            (std::vector<char32_t>{bad, U'a'}));
}

TEST(Utf16, OverlongAndHalfCharactersAreReplaced) {
  for (const char* text :
       {"\xC0\x80", "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xED\xA0\x80", "\xED\xB0\x80", "\xF4\x90\x80\x80"}) {
    EXPECT_EQ(charactersOf(text).front(), files::kReplacement);
  }
}

TEST(Utf16, CountsUnitsAndTellsWideTexts) {
  EXPECT_EQ(files::utf16Form("").units, 0U);
  EXPECT_EQ(files::utf16Form("ab").units, 2U);
  EXPECT_FALSE(files::utf16Form("\xC3\xBF").wide);  // U+00FF
  EXPECT_TRUE(files::utf16Form("\xC4\x80").wide);   // U+0100
  EXPECT_EQ(files::utf16Form("\xED\x95\x9C").units, 1U);
  EXPECT_EQ(files::utf16Form("\xF0\x9F\x98\x80").units, 2U);
}

TEST(Utf16, DecodesPairsAndReplacesHalves) {
  EXPECT_EQ(decoded(u"a\xD83D\xDE00z"), "a\xF0\x9F\x98\x80z");
  EXPECT_EQ(decoded(u"\xD83D"), "\xEF\xBF\xBD");
  EXPECT_EQ(decoded(u"\xDE00"
                    u"a"),
            "\xEF\xBF\xBD"
            "a");
  EXPECT_EQ(decoded(u"\xD83D\xD83D\xDE00"), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
  EXPECT_EQ(decoded(u"\xD83D"
                    u"a"),
            "\xEF\xBF\xBD"
            "a");
}

}  // namespace
}  // namespace vireon::tests
