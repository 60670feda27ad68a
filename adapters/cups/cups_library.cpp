#include "adapters/cups/cups_library.h"

#include "adapters/posix/shared_library.h"

namespace vireon::adapters {

std::optional<CupsLibrary> CupsLibrary::load() {
  const SharedLibrary library("libcups.so.2");
  CupsLibrary cups;
  const bool whole =
      library.find("cupsSetServer", cups.setServer) &&
      library.find("cupsSetPasswordCB2", cups.setPasswordCallback) &&
      library.find("cupsAddOption", cups.addOption) && library.find("cupsFreeOptions", cups.freeOptions) &&
      library.find("cupsGetNamedDest", cups.getNamedDest) && library.find("cupsFreeDests", cups.freeDests) &&
      library.find("cupsCreateJob", cups.createJob) && library.find("cupsCancelJob2", cups.cancelJob2) &&
      library.find("cupsStartDocument", cups.startDocument) &&
      library.find("cupsWriteRequestData", cups.writeRequestData) &&
      library.find("cupsFinishDocument", cups.finishDocument);
  return whole ? std::optional(cups) : std::nullopt;
}

}  // namespace vireon::adapters
