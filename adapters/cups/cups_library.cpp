#include "adapters/cups/cups_library.h"

#include <dlfcn.h>

namespace vireon::adapters {
namespace {

template <class Function>
bool find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(::dlsym(library, name));
  return function != nullptr;
}

}  // namespace

std::optional<CupsLibrary> CupsLibrary::load() {
  void* const library = ::dlopen("libcups.so.2", RTLD_NOW | RTLD_LOCAL);
  CupsLibrary cups;
  const bool whole =
      library != nullptr && find(library, "cupsSetServer", cups.setServer) &&
      find(library, "cupsSetPasswordCB2", cups.setPasswordCallback) &&
      find(library, "cupsAddOption", cups.addOption) && find(library, "cupsFreeOptions", cups.freeOptions) &&
      find(library, "cupsGetNamedDest", cups.getNamedDest) &&
      find(library, "cupsFreeDests", cups.freeDests) && find(library, "cupsCreateJob", cups.createJob) &&
      find(library, "cupsCancelJob2", cups.cancelJob2) &&
      find(library, "cupsStartDocument", cups.startDocument) &&
      find(library, "cupsWriteRequestData", cups.writeRequestData) &&
      find(library, "cupsFinishDocument", cups.finishDocument);
  return whole ? std::optional(cups) : std::nullopt;
}

}  // namespace vireon::adapters
