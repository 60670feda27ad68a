#include "adapters/spreadsheet/gsf_compound_files.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-outfile.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>

#include <algorithm>
#include <array>
#include <mutex>
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

bool writeTo(GsfOutput* out, std::string_view workbook) {
  const ObjectPtr<GsfOutfile> container(gsf_outfile_msole_new(out));
  if (!container) return false;
  gsf_outfile_msole_set_class_id(GSF_OUTFILE_MSOLE(container.get()), kWorkbookClass.data());
  const ObjectPtr<GsfOutput> stream(gsf_outfile_new_child(container.get(), kStream, FALSE));
  bool written = stream && gsf_output_write(stream.get(), workbook.size(),
                                            reinterpret_cast<const guint8*>(workbook.data())) != FALSE;
  // Both are closed in any case: the library complains of an open one that goes.
  if (stream) written = gsf_output_close(stream.get()) != FALSE && written;
  return gsf_output_close(GSF_OUTPUT(container.get())) != FALSE && written;
}

// The number of the stream of that name, without case; -1 where there is none.
int findStream(GsfInfile* container, const char* name) {
  const int count = gsf_infile_num_children(container);
  for (int index = 0; index < count; ++index) {
    const char* child = gsf_infile_name_by_index(container, index);
    if (child != nullptr && g_ascii_strcasecmp(child, name) == 0) return index;
  }
  return -1;
}

UnpackResult readStream(GsfInput* stream, std::size_t limit, std::size_t fileSize) {
  const gsf_off_t size = gsf_input_size(stream);
  if (size < 0 || static_cast<std::size_t>(size) > fileSize) return {{}, UnpackError::kDamaged};
  if (static_cast<std::size_t>(size) > limit) return {{}, UnpackError::kTooLarge};
  std::string workbook(static_cast<std::size_t>(size), '\0');
  // In parts: the library keeps room for the largest piece that it was asked for.
  for (std::size_t done = 0; done < workbook.size();) {
    const std::size_t part = std::min(kReadPart, workbook.size() - done);
    if (gsf_input_read(stream, part, reinterpret_cast<guint8*>(workbook.data() + done)) == nullptr) {
      return {{}, UnpackError::kDamaged};
    }
    done += part;
  }
  return {std::move(workbook), UnpackError::kNone};
}

UnpackResult readFrom(GsfInfile* container, std::size_t limit, std::size_t fileSize) {
  const int index = findStream(container, kStream);
  if (index < 0) {
    const bool old = findStream(container, kOldStream) >= 0;
    return {{}, old ? UnpackError::kOldWorkbook : UnpackError::kNoWorkbook};
  }
  const ObjectPtr<GsfInput> stream(gsf_infile_child_by_index(container, index));
  if (!stream) return {{}, UnpackError::kDamaged};
  const bool isStorage = gsf_infile_num_children(GSF_INFILE(stream.get())) >= 0;
  return isStorage ? UnpackResult{{}, UnpackError::kNoWorkbook} : readStream(stream.get(), limit, fileSize);
}

}  // namespace

GsfCompoundFiles::GsfCompoundFiles() {
  // Once for the process and never undone: another part of it may use the library too.
  static std::once_flag started;
  std::call_once(started, gsf_init);
}

PackResult GsfCompoundFiles::pack(std::string_view workbook) {
  if (workbook.size() > kMostPacked) return {{}, PackError::kTooLarge};
  const QuietLibrary quiet;
  const ObjectPtr<GsfOutput> out(gsf_output_memory_new());
  if (!out || !writeTo(out.get(), workbook)) return {{}, PackError::kFailed};
  const guint8* bytes = gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(out.get()));
  const gsf_off_t size = gsf_output_size(out.get());
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
  const QuietLibrary quiet;
  const ObjectPtr<GsfInput> in(gsf_input_memory_new(reinterpret_cast<const guint8*>(file.data()),
                                                    static_cast<gsf_off_t>(file.size()), FALSE));
  if (!in) return {{}, UnpackError::kDamaged};
  const ObjectPtr<GsfInfile> container(gsf_infile_msole_new(in.get(), nullptr));
  return container ? readFrom(container.get(), limit, file.size()) : UnpackResult{{}, UnpackError::kDamaged};
}

}  // namespace vireon::adapters
