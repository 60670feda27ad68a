#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "simulator/command.h"

namespace vireon::simulator {

// How the argument of a setting is written.
enum class Argument { kNotSettable, kNone, kWord, kHexByte, kDigitPair, kFunction, kFields, kDateTime };

// One mnemonic of the vocabulary.
struct Entry {
  std::string_view mnemonic{};
  Verb verb = Verb::kGtl;
  Argument argument = Argument::kNotSettable;
  std::string_view words{};  // two-letter words that it knows, parted by blanks
  int lowest = 0;            // bounds of a number
  int highest = 255;
  bool query = false;           // "??" is known
  std::size_t replyLength = 0;  // longest reply item with its key; 0: none, or a frame
};

// The entry of a mnemonic of three upper-case letters, or nothing.
const Entry* findEntry(std::string_view mnemonic);

// Meaning of a two-letter word of an entry, or kNone for a word that it does not know.
Word wordOf(const Entry& entry, std::string_view text);

}  // namespace vireon::simulator
