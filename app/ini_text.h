#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Sectioned settings texts by the rules of profile strings. Lines end with CR LF, LF or CR. Names of sections
// and keys are compared without case (ASCII alone) and without the blanks and tabs around them. Bytes above
// 127 stand for themselves. Of sections of one name the first that holds the key counts, of keys the first.
namespace vireon::app {

// The longest value in bytes: a buffer of 1024 with its end.
inline constexpr std::size_t kLongestIniValue = 1023;

// The key's value without blanks, tabs and one pair of equal quotes around it, up to its first zero byte;
// empty where the key or its section is absent and where the text is UTF-16.
std::string iniValue(std::string_view text, std::string_view section, std::string_view key);

// The text with the value, cut at its first line end or zero byte, put as it is behind the key; every other
// byte stays. A missing key goes to the end of its section, a missing section to the end of the text. The
// same text where the key has that value already. None where the text is UTF-16 or a name cannot be written:
// it is empty, it holds a line end, a zero byte, a ']' (section) or a '=' (key), or a key starts with ';' or
// '['.
std::optional<std::string> withIniValue(std::string_view text, std::string_view section, std::string_view key,
                                        std::string_view value);

}  // namespace vireon::app
