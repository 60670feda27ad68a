#pragma once

#include <string>
#include <utility>
#include <vector>

#include "adapters/posix/posix_file_store.h"
#include "app/memory_file_store.h"

namespace vireon::app {

// The demo's files: its settings live in memory, so that it starts anew each time; what the user saves is
// real.
class DemoFiles final : public platform::FileStore {
 public:
  explicit DemoFiles(std::string settings) : settings_(std::move(settings)) {}

  bool exists(const std::string& path) override { return storeOf(path).exists(path); }
  std::vector<std::string> list(const std::string& folder) override { return disk_.list(folder); }
  platform::FileReadResult read(const std::string& path, std::size_t limit) override {
    return storeOf(path).read(path, limit);
  }
  platform::FileReplace replace(const std::string& path, std::string_view bytes) override {
    return storeOf(path).replace(path, bytes);
  }

 private:
  platform::FileStore& storeOf(const std::string& path) {
    if (path == settings_) return memory_;
    return disk_;
  }

  std::string settings_;
  MemoryFileStore memory_;
  adapters::PosixFileStore disk_;
};

}  // namespace vireon::app
