#include "form/ascii.h"

#include <gtest/gtest.h>

#include <string>

namespace vireon::form {
namespace {

TEST(Ascii, OnlyTheLettersFromAToZHaveSmallOnes) {
  std::string changed;
  for (int code = 0; code < 256; ++code) {
    const auto letter = static_cast<char>(code);
    if (smallLetter(letter) != letter) changed += smallLetter(letter);
  }
  EXPECT_EQ(changed, "abcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ(smallLetter('A'), 'a');
}

TEST(Ascii, BlanksAndTabsAtTheEndsGo) {
  EXPECT_EQ(withoutBlanks(" \ta \tb\t "), "a \tb");
  EXPECT_EQ(withoutBlanks("a"), "a");
  EXPECT_EQ(withoutBlanks("\r\n "), "\r\n");
  EXPECT_EQ(withoutBlanks(" \t"), "");
  EXPECT_EQ(withoutBlanks(""), "");
}

}  // namespace
}  // namespace vireon::form
