#pragma once

#include <string>
#include <string_view>

namespace vireon::protocol {

// Characters `first` to `last` of an item, counted from 1; what lies past its end is missing.
std::string_view slice(std::string_view item, std::size_t first, std::size_t last);

// One or two hexadecimal digits of either case as 0 to 255. Faults (kConversion) on anything else.
int hexValue(std::string_view digits);

// Decimal digits with an optional sign and blanks around them. Faults (kConversion) on anything else
// and beyond the range of 16 bits.
int decimalValue(std::string_view text);

// The whole number that the text begins with, after blanks; 0 where it begins with none, and the nearest
// value of 32 bits where it is out of range.
int leadingNumber(std::string_view text);

// A number's text without the blanks at both ends and without a plus sign.
std::string_view numberText(std::string_view text);

// Without the blanks at both ends.
std::string_view trimmed(std::string_view text);

}  // namespace vireon::protocol
