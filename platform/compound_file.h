#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vireon::platform {

enum class PackError {
  kNone,
  kTooLarge,   // a container cannot hold so many bytes
  kNoLibrary,  // what makes containers is not installed
  kFailed,     // any other reason, e.g. no memory
};

struct PackResult {
  std::string file;  // the whole container; empty unless error is kNone
  PackError error = PackError::kNone;
};

enum class UnpackError {
  kNone,
  kNotCompound,  // another kind of file, or an empty one
  kNoWorkbook,   // a container of something else
  kOldWorkbook,  // a workbook of before 1997: its stream is "Book", or it needs no container
  kDamaged,      // a container that is cut off or contradicts itself
  kTooLarge,     // the workbook stream has more bytes than the limit
  kNoLibrary,    // what reads containers is not installed
};

struct UnpackResult {
  std::string workbook;  // the bytes of the stream "Workbook"; empty unless error is kNone
  UnpackError error = UnpackError::kNone;
};

// Compound files in memory, each with a workbook in it. No file of the disk is touched.
class CompoundFiles {
 public:
  CompoundFiles() = default;
  CompoundFiles(const CompoundFiles&) = delete;
  CompoundFiles& operator=(const CompoundFiles&) = delete;
  virtual ~CompoundFiles() = default;

  // A container whose one stream, "Workbook", has these bytes. The same bytes give the same container.
  virtual PackResult pack(std::string_view workbook) = 0;

  // The stream "Workbook" of a container, whose name is compared without case. The container may be hostile:
  // it takes memory for the stream and at most 8 MB beside it, and time in proportion to its size.
  virtual UnpackResult unpack(std::string_view file, std::size_t limit) = 0;
};

}  // namespace vireon::platform
