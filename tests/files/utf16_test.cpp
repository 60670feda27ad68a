#include "files/utf16.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace vireon::tests {
namespace {

std::string decoded(std::u16string_view units) {
  std::string out;
  files::Utf16Decoder decoder(out);
  for (const char16_t unit : units) decoder.add(unit);
  decoder.finish();
  return out;
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
  EXPECT_EQ(decoded(u"\xD83D\xFF21"), "\xEF\xBF\xBD\xEF\xBC\xA1");  // a wide A behind a half
}

}  // namespace
}  // namespace vireon::tests
