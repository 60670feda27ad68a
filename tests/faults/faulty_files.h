#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/compound_file.h"
#include "platform/document_opener.h"
#include "platform/file_dialog.h"
#include "platform/file_store.h"
#include "tests/faults/allocation_pause.h"
#include "tests/faults/fault_plan.h"

namespace vireon::tests {

class FaultyFileStore final : public platform::FileStore {
 public:
  FaultyFileStore(platform::FileStore& files, FaultPlan& plan) : files_(files), plan_(plan) {}

  bool exists(const std::string& path) override {
    const AllocationPause pause;
    return plan_.strike(kPort, "exists", 1) == 0 && files_.exists(path);
  }

  std::vector<std::string> list(const std::string& folder) override {
    const AllocationPause pause;
    return plan_.strike(kPort, "list", 1) == 0 ? files_.list(folder) : std::vector<std::string>{};
  }

  platform::FileReadResult read(const std::string& path, std::size_t limit) override {
    const AllocationPause pause;
    using enum platform::FileReadError;
    constexpr std::array kErrors{kNone, kFailed, kNotFound, kNoPermission, kTooLarge};
    const int kind = plan_.strike(kPort, "read", 4);
    return kind == 0 ? files_.read(path, limit)
                     : platform::FileReadResult{{}, kErrors.at(static_cast<std::size_t>(kind))};
  }

  platform::FileReplace replace(const std::string& path, std::string_view bytes) override {
    const AllocationPause pause;
    using enum platform::FileReplace;
    constexpr std::array kErrors{kDone, kFailed, kNoSpace, kNoPermission, kNoFolder};
    const int kind = plan_.strike(kPort, "replace", 4);
    return kind == 0 ? files_.replace(path, bytes) : kErrors.at(static_cast<std::size_t>(kind));
  }

 private:
  static constexpr std::string_view kPort = "file store";
  platform::FileStore& files_;
  FaultPlan& plan_;
};

// Fails by being cancelled.
class FaultyFileDialogs final : public platform::FileDialogs {
 public:
  FaultyFileDialogs(platform::FileDialogs& dialogs, FaultPlan& plan) : dialogs_(dialogs), plan_(plan) {}

  std::string openName(const platform::FileQuestion& question) override {
    const AllocationPause pause;
    return plan_.strike(kPort, "openName", 1) == 0 ? dialogs_.openName(question) : std::string();
  }
  std::string saveName(const platform::FileQuestion& question) override {
    const AllocationPause pause;
    return plan_.strike(kPort, "saveName", 1) == 0 ? dialogs_.saveName(question) : std::string();
  }

 private:
  static constexpr std::string_view kPort = "file dialog";
  platform::FileDialogs& dialogs_;
  FaultPlan& plan_;
};

class FaultyDocumentOpener final : public platform::DocumentOpener {
 public:
  FaultyDocumentOpener(platform::DocumentOpener& opener, FaultPlan& plan) : opener_(opener), plan_(plan) {}

  bool open(const std::string& path) override {
    const AllocationPause pause;
    return plan_.strike("document opener", "open", 1) == 0 && opener_.open(path);
  }

 private:
  platform::DocumentOpener& opener_;
  FaultPlan& plan_;
};

class FaultyCompoundFiles final : public platform::CompoundFiles {
 public:
  FaultyCompoundFiles(platform::CompoundFiles& files, FaultPlan& plan) : files_(files), plan_(plan) {}

  platform::PackResult pack(std::string_view workbook) override {
    const AllocationPause pause;
    using enum platform::PackError;
    constexpr std::array kErrors{kNone, kFailed, kTooLarge};
    const int kind = plan_.strike(kPort, "pack", 2);
    return kind == 0 ? files_.pack(workbook)
                     : platform::PackResult{{}, kErrors.at(static_cast<std::size_t>(kind))};
  }

  platform::UnpackResult unpack(std::string_view file, std::size_t limit) override {
    const AllocationPause pause;
    using enum platform::UnpackError;
    constexpr std::array kErrors{kNone, kDamaged, kNotCompound, kNoWorkbook, kOldWorkbook, kTooLarge};
    const int kind = plan_.strike(kPort, "unpack", 5);
    return kind == 0 ? files_.unpack(file, limit)
                     : platform::UnpackResult{{}, kErrors.at(static_cast<std::size_t>(kind))};
  }

 private:
  static constexpr std::string_view kPort = "compound files";
  platform::CompoundFiles& files_;
  FaultPlan& plan_;
};

}  // namespace vireon::tests
