#pragma once

#include <string>

namespace vireon::platform {

// What a file dialog offers. Texts and paths are UTF-8.
struct FileQuestion {
  std::string filter;            // "Scope Data File(*.wfm)|*.wfm": a caption, "|", a pattern; pairs repeat
  std::string folder;            // shown first; empty for the one last used
  std::string defaultExtension;  // with its dot, added to a typed name that has none; empty for none
  bool staysInFolder = false;    // another folder cannot be chosen
};

// Dialogs in which the user chooses a file. Modal: while one is open no timer of the program ticks.
class FileDialogs {
 public:
  FileDialogs() = default;
  FileDialogs(const FileDialogs&) = delete;
  FileDialogs& operator=(const FileDialogs&) = delete;
  virtual ~FileDialogs() = default;

  // The path of a file to open, which need not exist; empty when the user cancelled.
  virtual std::string openName(const FileQuestion& question) = 0;

  // The path of a file to write; the user has agreed to replace an existing one. Empty when cancelled.
  virtual std::string saveName(const FileQuestion& question) = 0;
};

}  // namespace vireon::platform
