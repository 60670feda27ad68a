#pragma once

#include <string>

namespace vireon::platform {

// Opens documents with the applications that the desktop has for them.
class DocumentOpener {
 public:
  DocumentOpener() = default;
  DocumentOpener(const DocumentOpener&) = delete;
  DocumentOpener& operator=(const DocumentOpener&) = delete;
  virtual ~DocumentOpener() = default;

  // Asks the desktop to open the file of this path (UTF-8) and returns without waiting for it. False when
  // there is no application for it, or no desktop.
  virtual bool open(const std::string& path) = 0;
};

}  // namespace vireon::platform
