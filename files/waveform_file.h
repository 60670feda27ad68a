#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "files/list_values.h"

namespace vireon::files {

// Bytes of a frame that a waveform file holds, and how many of them are read back: the last four characters
// of the meter reading stay in the file.
inline constexpr std::size_t kWaveformBytes = 289;
inline constexpr std::size_t kWaveformBytesRead = 285;

std::string waveformFile(std::span<const std::uint8_t, kWaveformBytes> frame);

// Puts the file's bytes into `frame`, up to the one that was missing or no number from 0 to 255.
ListReadResult readWaveform(std::string_view file, std::span<std::uint8_t, kWaveformBytesRead> frame);

}  // namespace vireon::files
