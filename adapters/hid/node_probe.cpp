#include "adapters/hid/node_probe.h"

#include <fcntl.h>
#include <linux/hidraw.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

#include "adapters/posix/repeated.h"

namespace vireon::adapters {
namespace {

using platform::HidOpenError;

NodeCheck refused(HidOpenError error) {
  return {.error = error, .reportDescriptor = {}, .heldOpen = {}};
}

FileDescriptor openForBoth(const std::string& path) {
  return FileDescriptor(
      repeated([&] { return ::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK); }));
}

// None where the open file is no HID node, or is one no more.
std::optional<std::vector<std::uint8_t>> readReportDescriptor(const FileDescriptor& node) {
  int size = 0;
  if (::ioctl(node.number(), HIDIOCGRDESCSIZE, &size) < 0) return std::nullopt;
  if (size <= 0 || size > HID_MAX_DESCRIPTOR_SIZE) return std::vector<std::uint8_t>{};
  hidraw_report_descriptor descriptor{};
  descriptor.size = static_cast<std::uint32_t>(size);
  if (::ioctl(node.number(), HIDIOCGRDESC, &descriptor) < 0) return std::nullopt;
  const std::span bytes = std::span(descriptor.value).first(static_cast<std::size_t>(size));
  return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
}

}  // namespace

HidOpenError openErrorOf(int errnoValue) {
  switch (errnoValue) {
    case EACCES:
    case EPERM:
      return HidOpenError::kNoPermission;
    case ENOENT:
    case ENOTDIR:
    case ENODEV:
    case ENXIO:
      return HidOpenError::kNotFound;
    default:
      return HidOpenError::kFailed;
  }
}

NodeCheck probeHidrawNode(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return refused(openErrorOf(errno));
  if (!S_ISCHR(status.st_mode)) return refused(HidOpenError::kNotFound);
  FileDescriptor node = openForBoth(path);
  if (!node.isOpen()) return refused(openErrorOf(errno));
  std::optional<std::vector<std::uint8_t>> descriptor = readReportDescriptor(node);
  if (!descriptor) return refused(HidOpenError::kNotFound);
  return {
      .error = HidOpenError::kNone, .reportDescriptor = *std::move(descriptor), .heldOpen = std::move(node)};
}

}  // namespace vireon::adapters
