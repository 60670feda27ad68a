#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/posix/posix_calls.h"
#include "platform/file_store.h"

namespace vireon::adapters {

// The files of a POSIX system. An old file that this account may not write is not replaced even where its
// folder would allow it. Where the folder itself cannot be flushed, a power failure soon after kDone may
// bring the old file back, whole.
class PosixFileStore final : public platform::FileStore {
 public:
  explicit PosixFileStore(PosixCalls calls = {});

  bool exists(const std::string& path) override;
  std::vector<std::string> list(const std::string& folder) override;
  platform::FileReadResult read(const std::string& path, std::size_t limit) override;
  platform::FileReplace replace(const std::string& path, std::string_view bytes) override;

 private:
  PosixCalls calls_;
};

// The reasons that an errno value of a failed call stands for; 0 is none, or done.
platform::FileReadError readErrorOf(int errnoValue);
platform::FileReplace replaceResultOf(int errnoValue);

}  // namespace vireon::adapters
