#pragma once

#include <atomic>
#include <new>
#include <thread>

#include "platform/file_store.h"

namespace vireon::tests {

// Passes every call on to other files, but holds it up first as long as a test wants.
class HeldFiles : public platform::FileStore {
 public:
  explicit HeldFiles(platform::FileStore& files) : files_(files) {}

  void hold() { held_ = true; }
  void release() {
    held_ = false;
    held_.notify_all();
  }
  // Whether a call is being held up.
  bool holding() const { return holding_; }

  bool outOfMemory = false;  // at every call
  std::thread::id caller;    // of the last call

  bool exists(const std::string& path) override {
    pass();
    return files_.exists(path);
  }
  std::vector<std::string> list(const std::string& folder) override {
    pass();
    return files_.list(folder);
  }
  platform::FileReadResult read(const std::string& path, std::size_t limit) override {
    pass();
    return files_.read(path, limit);
  }
  platform::FileReplace replace(const std::string& path, std::string_view bytes) override {
    pass();
    return files_.replace(path, bytes);
  }

 private:
  void pass() {
    caller = std::this_thread::get_id();
    holding_ = true;
    held_.wait(true);
    holding_ = false;
    if (outOfMemory) throw std::bad_alloc();
  }

  platform::FileStore& files_;
  std::atomic<bool> held_ = false;
  std::atomic<bool> holding_ = false;
};

}  // namespace vireon::tests
