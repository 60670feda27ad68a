#include "adapters/spreadsheet/gsf_compound_files.h"

#include <algorithm>
#include <array>
#include <string>

#include "adapters/spreadsheet/container_check.h"
#include "adapters/spreadsheet/gsf_objects.h"

namespace vireon::adapters {
namespace {

using platform::PackError;
using platform::PackResult;
using platform::UnpackError;
using platform::UnpackResult;

constexpr const char* kStream = "Workbook";
constexpr const char* kOldStream = "Book";
constexpr std::size_t kReadPart = 65536;
constexpr std::size_t kMostPacked = std::size_t{1} << 30U;  // the container's sizes have 31 bits

// The class of workbooks of 1997 to 2003, as a container's root names it.
constexpr std::array<guint8, 16> kWorkbookClass{0x20, 0x08, 0x02, 0, 0, 0, 0, 0,
                                                0xC0, 0,    0,    0, 0, 0, 0, 0x46};

// The library's classes begin with the one that they come from.
template <class To, class From>
To* as(From* object) {
  return reinterpret_cast<To*>(object);
}

bool writeTo(const GsfLibrary& gsf, GsfOutput* out, std::string_view workbook) {
  const auto container = own(gsf, gsf.outfileNew(out));
  if (!container) return false;
  gsf.outfileSetClass(as<GsfOutfileMSOle>(container.get()), kWorkbookClass.data());
  const auto stream = own(gsf, gsf.outfileChild(container.get(), kStream, FALSE));
  bool written = stream && gsf.outputWrite(stream.get(), workbook.size(),
                                           reinterpret_cast<const guint8*>(workbook.data())) != FALSE;
  // Both are closed in any case: the library complains of an open one that goes.
  if (stream) written = gsf.outputClose(stream.get()) != FALSE && written;
  return gsf.outputClose(as<GsfOutput>(container.get())) != FALSE && written;
}

// The number of the stream of that name, without case; -1 where there is none.
int findStream(const GsfLibrary& gsf, GsfInfile* container, const char* name) {
  const int count = gsf.infileChildren(container);
  for (int index = 0; index < count; ++index) {
    const char* child = gsf.infileName(container, index);
    if (child != nullptr && g_ascii_strcasecmp(child, name) == 0) return index;
  }
  return -1;
}

UnpackResult readStream(const GsfLibrary& gsf, GsfInput* stream, std::size_t limit, std::size_t fileSize) {
  const gsf_off_t size = gsf.inputSize(stream);
  if (size < 0 || static_cast<std::size_t>(size) > fileSize) return {{}, UnpackError::kDamaged};
  if (static_cast<std::size_t>(size) > limit) return {{}, UnpackError::kTooLarge};
  std::string workbook(static_cast<std::size_t>(size), '\0');
  // In parts: the library keeps room for the largest piece that it was asked for.
  for (std::size_t done = 0; done < workbook.size();) {
    const std::size_t part = std::min(kReadPart, workbook.size() - done);
    if (gsf.inputRead(stream, part, reinterpret_cast<guint8*>(workbook.data() + done)) == nullptr) {
      return {{}, UnpackError::kDamaged};
    }
    done += part;
  }
  return {std::move(workbook), UnpackError::kNone};
}

UnpackResult readFrom(const GsfLibrary& gsf, GsfInfile* container, std::size_t limit, std::size_t fileSize) {
  const int index = findStream(gsf, container, kStream);
  if (index < 0) {
    const bool old = findStream(gsf, container, kOldStream) >= 0;
    return {{}, old ? UnpackError::kOldWorkbook : UnpackError::kNoWorkbook};
  }
  const auto stream = own(gsf, gsf.infileChild(container, index));
  if (!stream) return {{}, UnpackError::kDamaged};
  const bool isStorage = gsf.infileChildren(as<GsfInfile>(stream.get())) >= 0;
  return isStorage ? UnpackResult{{}, UnpackError::kNoWorkbook}
                   : readStream(gsf, stream.get(), limit, fileSize);
}

}  // namespace

GsfCompoundFiles::GsfCompoundFiles() : GsfCompoundFiles(GsfLibrary::kName) {}

GsfCompoundFiles::GsfCompoundFiles(const char* library) : name_(library) {}

GsfCompoundFiles::~GsfCompoundFiles() = default;

const GsfLibrary* GsfCompoundFiles::library() {
  std::call_once(asked_, [this] { gsf_ = GsfLibrary::load(name_); });
  return gsf_.get();
}

PackResult GsfCompoundFiles::pack(std::string_view workbook) {
  if (workbook.size() > kMostPacked) return {{}, PackError::kTooLarge};
  const GsfLibrary* const gsf = library();
  if (gsf == nullptr) return {{}, PackError::kNoLibrary};
  const QuietLibrary quiet;
  const auto out = own(*gsf, gsf->outputMemoryNew());
  if (!out || !writeTo(*gsf, out.get(), workbook)) return {{}, PackError::kFailed};
  const guint8* bytes = gsf->outputBytes(as<GsfOutputMemory>(out.get()));
  const gsf_off_t size = gsf->outputSize(out.get());
  if (bytes == nullptr || size <= 0) return {{}, PackError::kFailed};
  return {std::string(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size)),
          PackError::kNone};
}

UnpackResult GsfCompoundFiles::unpack(std::string_view file, std::size_t limit) {
  switch (containerFault(file)) {
    case ContainerFault::kNotCompound:
      return {{}, UnpackError::kNotCompound};
    case ContainerFault::kOldWorkbook:
      return {{}, UnpackError::kOldWorkbook};
    case ContainerFault::kDamaged:
      return {{}, UnpackError::kDamaged};
    case ContainerFault::kNone:
      break;
  }
  const GsfLibrary* const gsf = library();
  if (gsf == nullptr) return {{}, UnpackError::kNoLibrary};
  const QuietLibrary quiet;
  const auto in = own(*gsf, gsf->inputMemoryNew(reinterpret_cast<const guint8*>(file.data()),
                                                static_cast<gsf_off_t>(file.size()), FALSE));
  if (!in) return {{}, UnpackError::kDamaged};
  const auto container = own(*gsf, gsf->infileNew(in.get(), nullptr));
  return container ? readFrom(*gsf, container.get(), limit, file.size())
                   : UnpackResult{{}, UnpackError::kDamaged};
}

}  // namespace vireon::adapters
