#pragma once

#include <string>
#include <string_view>

namespace vireon::form {

inline constexpr char32_t kReplacement = 0xFFFD;

// Cuts the first character off a UTF-8 text that is not empty. A byte that belongs to none is U+FFFD.
char32_t takeCharacter(std::string_view& rest);

void appendUtf8(std::string& out, char32_t character);

}  // namespace vireon::form
