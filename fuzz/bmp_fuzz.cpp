#include <cstdint>
#include <cstdlib>
#include <string>

#include "capture/bmp_file.h"

namespace {

void require(bool invariant) {
  if (!invariant) {
    std::abort();
  }
}

}  // namespace

// Bytes of any content as a bitmap file: a picture of the size that it says, which is written and read back
// unchanged, or an error.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vireon::capture::BmpError;
  const std::string bytes(data, data + size);
  const auto result = vireon::capture::readBmp(bytes);
  require(result.bitmap.empty() == (result.error != BmpError::kNone));
  if (result.bitmap.empty()) {
    return 0;
  }
  require(result.bitmap.pixels.size() ==
          static_cast<std::size_t>(result.bitmap.width) * static_cast<std::size_t>(result.bitmap.height));
  constexpr std::size_t kQuick = 1U << 16U;  // pixels
  if (result.bitmap.pixels.size() <= kQuick) {
    require(vireon::capture::readBmp(vireon::capture::bmpFile(result.bitmap)).bitmap == result.bitmap);
  }
  return 0;
}
