#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vireon::form {

// Code page 1252, in which controls hold their texts. The five codes that it leaves open stand for the
// control characters of the same numbers.

// The Unicode character of a code.
char32_t characterOf(unsigned char code);

// The code of a Unicode character; none for the characters that the code page lacks.
std::optional<unsigned char> codeOf(char32_t character);

std::string utf8From1252(std::string_view text);

struct Text1252 {
  std::string text;       // one byte one character
  bool complete = false;  // False where "?" stands for a character that the code page lacks
};

// Bytes that are no UTF-8 count as characters that the code page lacks, each for itself.
Text1252 text1252FromUtf8(std::string_view utf8);

}  // namespace vireon::form
