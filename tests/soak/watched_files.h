#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

#include "adapters/posix/posix_file_store.h"
#include "platform/file_store.h"
#include "tests/soak/act_log.h"
#include "tests/soak/paint_watch.h"

namespace vireon::soak {

// The real files of one folder, with faults, under watch: what a save says to have saved is read back at
// once, and what is not being saved stays as it was.
class WatchedFiles : public platform::FileStore {
 public:
  WatchedFiles(std::filesystem::path folder, ActLog& log, PaintWatch& paints);

  bool exists(const std::string& path) override { return disk().exists(path); }
  std::vector<std::string> list(const std::string& folder) override { return disk().list(folder); }
  platform::FileReadResult read(const std::string& path, std::size_t limit) override;
  platform::FileReplace replace(const std::string& path, std::string_view bytes) override;

  // A session's way to the same files; null for the direct one.
  void go(platform::FileStore* way) { way_ = way; }

  // Every read or write from now on ends so; none and done switch that off.
  void setFaults(platform::FileReadError reading, platform::FileReplace writing);

  // Whether the last save of this path succeeded.
  bool saved(const std::string& path) const { return saved_.contains(path); }
  // Every file that was saved is what it was. Not while the folder is away.
  void checkAll();
  // The user removes a file by other means.
  void forget(const std::string& path) { saved_.erase(path); }
  void forgetAll() { saved_.clear(); }

  std::uint64_t saves() const { return saves_; }
  std::uint64_t loads() const { return loads_; }
  std::uint64_t failures() const { return failures_; }

 private:
  platform::FileStore& disk() {
    if (way_ != nullptr) return *way_;
    return disk_;
  }
  std::string onDisk(const std::string& path) const;
  bool isInside(const std::string& path) const;

  std::filesystem::path folder_;
  ActLog& log_;
  PaintWatch& paints_;
  adapters::PosixFileStore disk_;
  platform::FileStore* way_ = nullptr;
  platform::FileReadError reading_ = platform::FileReadError::kNone;
  platform::FileReplace writing_ = platform::FileReplace::kDone;
  std::map<std::string, std::string> saved_;  // contents by path
  std::uint64_t saves_ = 0;
  std::uint64_t loads_ = 0;
  std::uint64_t failures_ = 0;
};

}  // namespace vireon::soak
