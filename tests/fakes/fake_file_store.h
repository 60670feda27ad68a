#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_store.h"
#include "tests/fakes/fault_count.h"

namespace vireon::tests {

// Files in memory, by their paths as they are written. Calls are counted from 1.
class FakeFileStore final : public platform::FileStore {
 public:
  std::map<std::string, std::string> files;

  // What goes wrong, each at the n-th call of its kind; a replacement that fails leaves the file alone.
  std::map<std::size_t, platform::FileReadError> readErrors;
  std::map<std::size_t, platform::FileReplace> replaceErrors;
  std::optional<std::size_t> vanishAtRead;  // the file asked for goes just before this read

  // What happened.
  std::size_t looks = 0;  // every exists()
  std::size_t reads = 0;
  std::size_t replaces = 0;

  bool exists(const std::string& path) override {
    ++looks;
    return files.contains(path);
  }

  std::vector<std::string> list(const std::string& folder) override {
    const std::string prefix = folder + "/";
    std::vector<std::string> names;
    for (const auto& [path, bytes] : files) {
      if (path.starts_with(prefix) && path.find('/', prefix.size()) == std::string::npos) {
        names.push_back(path.substr(prefix.size()));
      }
    }
    return names;
  }

  platform::FileReadResult read(const std::string& path, std::size_t limit) override {
    if (++reads == vanishAtRead) {
      countFault();
      files.erase(path);
    }
    if (const auto error = readErrors.find(reads); error != readErrors.end()) {
      countFault();
      return {{}, error->second};
    }
    const auto file = files.find(path);
    if (file == files.end()) return {{}, platform::FileReadError::kNotFound};
    if (file->second.size() > limit) return {{}, platform::FileReadError::kTooLarge};
    return {file->second, platform::FileReadError::kNone};
  }

  platform::FileReplace replace(const std::string& path, std::string_view bytes) override {
    if (const auto error = replaceErrors.find(++replaces); error != replaceErrors.end()) {
      countFault();
      return error->second;
    }
    files[path] = bytes;
    return platform::FileReplace::kDone;
  }
};

}  // namespace vireon::tests
