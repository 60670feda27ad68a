#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <functional>

namespace vireon::adapters {

// The system calls of the file store, each with the system's own contract; errors are in errno.
struct PosixCalls {
  std::function<int(const char*, int, mode_t)> open = [](const char* path, int flags, mode_t mode) {
    return ::open(path, flags, mode);
  };
  std::function<int(const char*, struct stat*)> stat = [](const char* path, struct stat* status) {
    return ::stat(path, status);
  };
  std::function<int(const char*, struct stat*)> lstat = ::lstat;
  std::function<int(int, struct stat*)> fstat = ::fstat;
  std::function<ssize_t(const char*, char*, std::size_t)> readlink = ::readlink;
  std::function<ssize_t(int, void*, std::size_t)> read = ::read;
  std::function<ssize_t(int, const void*, std::size_t)> write = ::write;
  std::function<int(int, uid_t, gid_t)> fchown = ::fchown;
  std::function<int(int, mode_t)> fchmod = ::fchmod;
  std::function<int(int)> fsync = ::fsync;
  std::function<int(int)> close = ::close;
  std::function<int(const char*, const char*)> rename = ::rename;
  std::function<int(const char*)> unlink = ::unlink;
};

}  // namespace vireon::adapters
