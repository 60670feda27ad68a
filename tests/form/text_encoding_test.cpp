#include "form/text_encoding.h"

#include <gtest/gtest.h>

#include <string>

namespace vireon::form {
namespace {

TEST(TextEncoding, EveryCodeComesBackFromUtf8) {
  std::string all;
  for (int code = 0; code < 256; ++code) {
    all += static_cast<char>(code);
  }
  const Text1252 back = text1252FromUtf8(utf8From1252(all));
  EXPECT_EQ(back.text, all);
  EXPECT_TRUE(back.complete);
}

TEST(TextEncoding, KnowsTheCharactersBetween128And159) {
  EXPECT_EQ(utf8From1252("\x80\x99\x9F"),
            "\xE2\x82\xAC\xE2\x84\xA2\xC5\xB8");  // euro, trade mark, Y diaeresis
  EXPECT_EQ(utf8From1252("\xB5s \xDF"), "\xC2\xB5s \xC3\x9F");
  EXPECT_EQ(characterOf(0x80), 0x20ACU);
  EXPECT_EQ(codeOf(0x20AC), 0x80);
  EXPECT_EQ(codeOf(0x80), std::nullopt);
}

TEST(TextEncoding, WhatTheCodePageLacksBecomesAQuestionMarkAndIsTold) {
  const Text1252 korean = text1252FromUtf8(
      "a\xED\x8C\x8C\xEC\x9D\xBC"
      "b");
  EXPECT_EQ(korean.text, "a??b");
  EXPECT_FALSE(korean.complete);
  EXPECT_EQ(text1252FromUtf8("\xF0\x9F\x98\x80").text, "?");
}

struct Broken {
  const char* name;
  std::string bytes;
  std::string text;
};

TEST(TextEncoding, BytesThatAreNoUtf8CountOneByOne) {
  const Broken cases[] = {
      {"a lone continuation", "\x80", "?"},
      {"a lead without an end", "\xE2\x82", "??"},
      {"a lead and a letter", "\xC3z", "?z"},
      {"too long a form of a slash", "\xC0\xAF", "??"},
      {"half a pair of surrogates", "\xED\xA0\x80", "???"},
      {"beyond the last character", "\xF4\x90\x80\x80", "????"},
      {"a byte that begins nothing", "\xFF", "?"},
  };
  for (const Broken& broken : cases) {
    const Text1252 result = text1252FromUtf8(broken.bytes);
    EXPECT_EQ(result.text, broken.text) << broken.name;
    EXPECT_FALSE(result.complete) << broken.name;
  }
}

}  // namespace
}  // namespace vireon::form
