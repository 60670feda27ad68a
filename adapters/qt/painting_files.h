#pragma once

#include "adapters/qt/background_worker.h"
#include "platform/file_store.h"

namespace vireon::adapters {

// Files whose calls leave the windows painting, however long the disk holds a call up.
class PaintingFiles : public platform::FileStore {
 public:
  // `files` does the work, on another thread, one call at a time. It and `gate` outlive this object.
  PaintingFiles(platform::FileStore& files, ModalGate& gate) : files_(files), worker_(gate) {}

  bool exists(const std::string& path) override;
  std::vector<std::string> list(const std::string& folder) override;
  platform::FileReadResult read(const std::string& path, std::size_t limit) override;
  platform::FileReplace replace(const std::string& path, std::string_view bytes) override;

 private:
  platform::FileStore& files_;
  BackgroundWorker worker_;
};

}  // namespace vireon::adapters
