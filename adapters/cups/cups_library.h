#pragma once

#include <cups/cups.h>

#include <optional>

namespace vireon::adapters {

// What is used of libcups.
struct CupsLibrary {
  decltype(&::cupsSetServer) setServer = nullptr;
  decltype(&::cupsSetPasswordCB2) setPasswordCallback = nullptr;
  decltype(&::cupsAddOption) addOption = nullptr;
  decltype(&::cupsFreeOptions) freeOptions = nullptr;
  decltype(&::cupsGetNamedDest) getNamedDest = nullptr;
  decltype(&::cupsFreeDests) freeDests = nullptr;
  decltype(&::cupsCreateJob) createJob = nullptr;
  decltype(&::cupsCancelJob2) cancelJob2 = nullptr;
  decltype(&::cupsStartDocument) startDocument = nullptr;
  decltype(&::cupsWriteRequestData) writeRequestData = nullptr;
  decltype(&::cupsFinishDocument) finishDocument = nullptr;

  // Loads the library, which brings fifteen others along. Nothing where it is not installed.
  static std::optional<CupsLibrary> load();
};

}  // namespace vireon::adapters
