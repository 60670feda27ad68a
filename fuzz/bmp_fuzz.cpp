#include <cstdint>
#include <string_view>

#include "capture/bmp_file.h"
#include "fuzz/require.h"

namespace {

// A picture of run lengths may be far larger than its file; filling it is all that would take time.
constexpr std::int64_t kMostPixels = 4096;

}  // namespace

// An input is a bitmap file: a picture of the size that it says, which is written and read back unchanged, or
// an error.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vireon::capture::BmpError;
  using vireon::fuzz::require;
  const auto result =
      vireon::capture::readBmp(std::string_view(reinterpret_cast<const char*>(data), size), kMostPixels);
  require(result.bitmap.empty() == (result.error != BmpError::kNone));
  if (result.bitmap.empty()) {
    return 0;
  }
  const auto pixels =
      static_cast<std::size_t>(result.bitmap.width) * static_cast<std::size_t>(result.bitmap.height);
  require(pixels <= kMostPixels && result.bitmap.pixels.size() == pixels);
  require(vireon::capture::readBmp(vireon::capture::bmpFile(result.bitmap)).bitmap == result.bitmap);
  return 0;
}
