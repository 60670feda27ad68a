#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/file_store.h"

namespace vireon::app {

// Files that live as long as this object; what is tried out leaves nothing behind.
class MemoryFileStore final : public platform::FileStore {
 public:
  bool exists(const std::string& path) override { return files_.contains(path); }

  std::vector<std::string> list(const std::string& folder) override {
    const std::string prefix = folder + "/";
    std::vector<std::string> names;
    for (const auto& [path, bytes] : files_) {
      if (path.starts_with(prefix) && path.find('/', prefix.size()) == std::string::npos) {
        names.push_back(path.substr(prefix.size()));
      }
    }
    return names;
  }

  platform::FileReadResult read(const std::string& path, std::size_t limit) override {
    const auto file = files_.find(path);
    if (file == files_.end()) {
      return {{}, platform::FileReadError::kNotFound};
    }
    return file->second.size() > limit
               ? platform::FileReadResult{{}, platform::FileReadError::kTooLarge}
               : platform::FileReadResult{file->second, platform::FileReadError::kNone};
  }

  platform::FileReplace replace(const std::string& path, std::string_view bytes) override {
    files_[path] = bytes;
    return platform::FileReplace::kDone;
  }

 private:
  std::map<std::string, std::string> files_;
};

}  // namespace vireon::app
