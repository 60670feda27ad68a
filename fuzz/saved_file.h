#pragma once

#include <array>

// The form of an input: byte 0 says by its position here which kind of file the rest is.
namespace vireon::fuzz {

inline constexpr std::array kExtensions = {".wfm", ".trd", ".txt"};

}  // namespace vireon::fuzz
