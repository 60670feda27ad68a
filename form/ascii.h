#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

// Letters and blanks by the rules of ASCII, whatever the system's locale.
namespace vireon::form {

constexpr char smallLetter(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

// Without the blanks and tabs at either end.
constexpr std::string_view withoutBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

}  // namespace vireon::form
