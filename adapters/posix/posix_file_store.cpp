#include "adapters/posix/posix_file_store.h"

#include <dirent.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <memory>
#include <optional>
#include <utility>

#include "adapters/posix/open_file.h"
#include "adapters/posix/repeated.h"

namespace vireon::adapters {
namespace {

using platform::FileReadError;
using platform::FileReadResult;
using platform::FileReplace;

constexpr int kMostLinks = 40;         // as the kernel follows
constexpr int kMostTemporaries = 100;  // left by writers that were stopped, or of writers at work
constexpr std::size_t kReadPart = 65536;
constexpr mode_t kPermissions = 0777;

bool isOneName(const std::string& path) {
  return path.find('\0') == std::string::npos;
}

// With the slash at its end.
std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

// The functions below return 0 or errno.

// Leads `path` to the end of its links; `old` is the file there, if any.
int findTarget(const PosixCalls& calls, std::string& path, std::optional<struct stat>& old) {
  for (int links = 0; links <= kMostLinks; ++links) {
    struct stat status {};
    if (calls.lstat(path.c_str(), &status) != 0) return errno == ENOENT ? 0 : errno;
    if (!S_ISLNK(status.st_mode)) {
      old = status;
      return S_ISREG(status.st_mode) ? 0 : EISDIR;
    }
    std::array<char, PATH_MAX> target{};
    const ssize_t length = calls.readlink(path.c_str(), target.data(), target.size());
    if (length < 0) return errno;
    const std::string_view name(target.data(), static_cast<std::size_t>(length));
    path = name.starts_with('/') ? std::string(name) : folderOf(path).append(name);
  }
  return ELOOP;
}

int checkWritable(const PosixCalls& calls, const std::string& path) {
  const OpenFile file(calls, path, O_WRONLY | O_NOFOLLOW | O_NONBLOCK);
  return file.isOpen() ? 0 : errno;
}

int writeAll(const PosixCalls& calls, int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = repeated([&] { return calls.write(file, bytes.data(), bytes.size()); });
    if (written < 0) return errno;
    if (written == 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

// True where the file has the group of `old` afterwards. Without privilege a new owner is refused, and the
// group with it where both are asked for at once.
bool takeOwners(const PosixCalls& calls, int file, const struct stat& now, const struct stat& old) {
  if (now.st_uid == old.st_uid && now.st_gid == old.st_gid) return true;
  if (calls.fchown(file, old.st_uid, old.st_gid) == 0 || now.st_gid == old.st_gid) return true;
  return calls.fchown(file, static_cast<uid_t>(-1), old.st_gid) == 0;
}

// Owner and group are kept where the system allows it: a file written once as root stays its user's, and a
// shared one its group's. Another group gets no rights.
int takePermissions(const PosixCalls& calls, int file, const struct stat& old) {
  struct stat now {};
  if (calls.fstat(file, &now) != 0) return errno;
  const mode_t kept = takeOwners(calls, file, now, old) ? kPermissions : kPermissions & ~mode_t{S_IRWXG};
  const mode_t mode = old.st_mode & kept;
  if ((now.st_mode & kPermissions) == mode) return 0;
  return calls.fchmod(file, mode) == 0 ? 0 : errno;
}

// A new file beside the one it will replace; removed unless it took that place.
class Temporary {
 public:
  explicit Temporary(const PosixCalls& calls) : calls_(calls) {}
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;
  ~Temporary() {
    file_.reset();
    if (!path_.empty()) static_cast<void>(calls_.unlink(path_.c_str()));
  }

  int create(const std::string& folder, mode_t mode) {
    const std::string stem = folder + ".vireon-" + std::to_string(::getpid()) + '-';
    for (int number = 0; number < kMostTemporaries; ++number) {
      std::string name = stem + std::to_string(number);
      file_ = std::make_unique<OpenFile>(calls_, name, O_WRONLY | O_CREAT | O_EXCL, mode);
      if (file_->isOpen()) {
        path_ = std::move(name);
        return 0;
      }
      if (errno != EEXIST) return errno;
    }
    return EEXIST;
  }

  int fill(std::string_view bytes, const std::optional<struct stat>& old) {
    if (const int error = writeAll(calls_, file_->number(), bytes); error != 0) return error;
    if (old) {
      if (const int error = takePermissions(calls_, file_->number(), *old); error != 0) return error;
    }
    if (repeated([&] { return calls_.fsync(file_->number()); }) != 0) return errno;
    return file_->close();
  }

  int takePlaceOf(const std::string& target) {
    if (calls_.rename(path_.c_str(), target.c_str()) != 0) return errno;
    path_.clear();
    return 0;
  }

 private:
  const PosixCalls& calls_;
  std::string path_;
  std::unique_ptr<OpenFile> file_;
};

// The file has its new content already, so a folder that cannot be flushed is no failure.
void flushFolder(const PosixCalls& calls, const std::string& folder) {
  const OpenFile file(calls, folder, O_RDONLY | O_DIRECTORY);
  if (file.isOpen()) static_cast<void>(repeated([&] { return calls.fsync(file.number()); }));
}

int replaceFile(const PosixCalls& calls, std::string path, std::string_view bytes) {
  if (path.empty()) return ENOENT;
  std::optional<struct stat> old;
  if (const int error = findTarget(calls, path, old); error != 0) return error;
  if (old) {
    const int error = checkWritable(calls, path);
    if (error == ENOENT) old.reset();
    if (error != 0 && error != ENOENT) return error;
  }
  const std::string folder = folderOf(path);
  Temporary temporary(calls);
  // Closed to others until it has the old file's permissions.
  if (const int error = temporary.create(folder, old ? 0600 : 0666); error != 0) return error;
  if (const int error = temporary.fill(bytes, old); error != 0) return error;
  if (const int error = temporary.takePlaceOf(path); error != 0) return error;
  flushFolder(calls, folder);
  return 0;
}

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

// Links are followed.
bool isOrdinaryFile(DIR& folder, const dirent& entry) {
  struct stat status {};
  const bool unsure = entry.d_type == DT_LNK || entry.d_type == DT_UNKNOWN;
  return entry.d_type == DT_REG ||
         (unsure && ::fstatat(::dirfd(&folder), &entry.d_name[0], &status, 0) == 0 &&
          S_ISREG(status.st_mode));
}

}  // namespace

PosixFileStore::PosixFileStore(PosixCalls calls) : calls_(std::move(calls)) {}

bool PosixFileStore::exists(const std::string& path) {
  struct stat status {};
  return isOneName(path) && calls_.stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

// Not the standard library's: where memory runs out, that ends the program.
std::vector<std::string> PosixFileStore::list(const std::string& folder) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, CloseFolder> opened(isOneName(folder) ? ::opendir(folder.c_str()) : nullptr);
  const dirent* entry = opened ? ::readdir(opened.get()) : nullptr;
  for (; entry != nullptr; entry = ::readdir(opened.get())) {
    if (isOrdinaryFile(*opened, *entry)) names.emplace_back(&entry->d_name[0]);
  }
  std::sort(names.begin(), names.end());
  return names;
}

FileReadResult PosixFileStore::read(const std::string& path, std::size_t limit) {
  if (!isOneName(path)) return {{}, FileReadError::kNotFound};
  // Without O_NONBLOCK a pipe of that name would wait for its writer.
  const OpenFile file(calls_, path, O_RDONLY | O_NONBLOCK);
  struct stat status {};
  if (!file.isOpen() || calls_.fstat(file.number(), &status) != 0) return {{}, readErrorOf(errno)};
  if (!S_ISREG(status.st_mode)) return {{}, FileReadError::kNotFound};
  if (static_cast<std::size_t>(status.st_size) > limit) return {{}, FileReadError::kTooLarge};
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(status.st_size));
  std::string part(kReadPart, '\0');
  while (true) {
    const ssize_t count = repeated([&] { return calls_.read(file.number(), part.data(), part.size()); });
    if (count < 0) return {{}, readErrorOf(errno)};
    if (count == 0) return {std::move(bytes), FileReadError::kNone};
    // The file may have grown since it was opened.
    if (static_cast<std::size_t>(count) > limit - bytes.size()) return {{}, FileReadError::kTooLarge};
    bytes.append(part, 0, static_cast<std::size_t>(count));
  }
}

FileReplace PosixFileStore::replace(const std::string& path, std::string_view bytes) {
  return replaceResultOf(isOneName(path) ? replaceFile(calls_, path, bytes) : EINVAL);
}

FileReadError readErrorOf(int errnoValue) {
  switch (errnoValue) {
    case 0:
      return FileReadError::kNone;
    case ENOENT:
    case ENOTDIR:
    case ENXIO:  // a socket
    case ENODEV:
      return FileReadError::kNotFound;
    case EACCES:
    case EPERM:
      return FileReadError::kNoPermission;
    default:
      return FileReadError::kFailed;
  }
}

FileReplace replaceResultOf(int errnoValue) {
  switch (errnoValue) {
    case 0:
      return FileReplace::kDone;
    case EACCES:
    case EPERM:
    case EROFS:
      return FileReplace::kNoPermission;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return FileReplace::kNoSpace;
    case ENOENT:
    case ENOTDIR:
      return FileReplace::kNoFolder;
    default:
      return FileReplace::kFailed;
  }
}

}  // namespace vireon::adapters
