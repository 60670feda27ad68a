#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vireon::platform {

enum class FileReadError {
  kNone,
  kNotFound,      // no ordinary file of that name, or it vanished since it was listed
  kNoPermission,  // the file is there but this account may not read it
  kTooLarge,      // more bytes than the limit
  kFailed,        // any other reason, e.g. a fault of the disk
};

struct FileReadResult {
  std::string bytes;  // the whole file as it stands; empty unless error is kNone
  FileReadError error = FileReadError::kNone;
};

enum class FileReplace {
  kDone,
  kNoPermission,  // the folder or the old file is closed to this account, or the disk is read-only
  kNoSpace,       // the disk, the account's quota or the longest file allowed is full
  kNoFolder,      // the folder is not there
  kFailed,        // any other reason, e.g. a fault of the disk, or the name is a folder's
};

// Whole files by name. Paths are UTF-8; a relative one starts at the current folder.
class FileStore {
 public:
  FileStore() = default;
  FileStore(const FileStore&) = delete;
  FileStore& operator=(const FileStore&) = delete;
  virtual ~FileStore() = default;

  // Tells whether an ordinary file of that name is listed now; symbolic links are followed. False for an
  // empty path and for folders.
  virtual bool exists(const std::string& path) = 0;

  // The names of the ordinary files in a folder, hidden ones too, in the order of their bytes; symbolic links
  // are followed. Empty where the folder is not there or closed to this account.
  virtual std::vector<std::string> list(const std::string& folder) = 0;

  // The content of a file of at most `limit` bytes. While the file is being replaced it is the old content
  // or the new one, whole.
  virtual FileReadResult read(const std::string& path, std::size_t limit) = 0;

  // Puts a file with this content in the place of the old one, or where there was none. A symbolic link
  // stays and its target is replaced. The old file's permissions are kept; a new file has the account's
  // usual ones. Returns when the content is on the disk. Whatever else than kDone is returned, the old file
  // is untouched and nothing new lies beside it. If the computer stops meanwhile, the file is the old or the
  // new one, whole, and a hidden file may lie beside it.
  virtual FileReplace replace(const std::string& path, std::string_view bytes) = 0;
};

}  // namespace vireon::platform
