#pragma once

#include <cstdint>

// The form of an input: byte 0 the window's state, then frame texts, each ended by kFrameEnd.
namespace vireon::fuzz {

inline constexpr std::uint8_t kMeterTab = 1;    // bit 0: tab 1 is shown
inline constexpr std::uint8_t kTrendPanel = 2;  // bit 1: the trend panel is shown
inline constexpr std::uint8_t kRecording = 4;   // bit 2: the record button reads "Stop"
inline constexpr std::uint8_t kSaveArmed = 8;   // bit 3: the next waveform frame is to be saved
inline constexpr unsigned kModeShift = 4;       // bits 4 to 6: list position of the logger mode
inline constexpr std::uint8_t kFrameEnd = 3;

}  // namespace vireon::fuzz
