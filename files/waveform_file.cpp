#include "files/waveform_file.h"

#include <cmath>

namespace vireon::files {

std::string waveformFile(std::span<const std::uint8_t, kWaveformBytes> frame) {
  std::string file;
  for (const std::uint8_t byte : frame) {
    file.append(listNumber(byte)).append(kLineEnd);
  }
  return file;
}

ListReadResult readWaveform(std::string_view file, std::span<std::uint8_t, kWaveformBytesRead> frame) {
  ListReader reader(file);
  for (std::uint8_t& byte : frame) {
    const auto field = reader.field();
    if (!field) {
      return {ListError::kTooShort, reader.line()};
    }
    // Rounded half to even, as a number is that goes into a byte.
    const double value = std::nearbyint(numberOfField(*field).value_or(-1));
    if (value < 0 || value > 255) {
      return {ListError::kNoNumber, reader.line()};
    }
    byte = static_cast<std::uint8_t>(value);
  }
  return {ListError::kNone, reader.line()};
}

}  // namespace vireon::files
