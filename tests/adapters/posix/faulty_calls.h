#pragma once

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "adapters/posix/posix_calls.h"
#include "tests/fakes/fault_count.h"

namespace vireon::tests {

// The system's calls with one of them failing. Outlives the calls it made.
class FaultyCalls {
 public:
  std::size_t failAt = 0;      // the n-th call from 1 fails; 0 is none
  int error = EIO;             // its errno
  std::string failName;        // counts the calls of this name alone; empty counts all
  std::size_t shortWrite = 0;  // bytes that one write takes at most; 0 is all
  // Runs instead of the n-th call's failure, e.g. to stop the process.
  std::function<void()> insteadOfFailing;

  std::vector<std::string> made;  // the names of all calls
  int openFiles = 0;

  adapters::PosixCalls calls() {
    adapters::PosixCalls real;
    adapters::PosixCalls faulty;
    faulty.open = [this, call = real.open](const char* path, int flags, mode_t mode) {
      const int file = fails("open") ? -1 : call(path, flags, mode);
      openFiles += file >= 0 ? 1 : 0;
      return file;
    };
    // A close that fails closes all the same.
    faulty.close = [this, call = real.close](int file) {
      openFiles -= call(file) == 0 ? 1 : 0;
      return fails("close") ? -1 : 0;
    };
    faulty.write = [this, call = real.write](int file, const void* bytes, std::size_t size) {
      return fails("write") ? ssize_t{-1}
                            : call(file, bytes, shortWrite > 0 ? std::min(size, shortWrite) : size);
    };
    faulty.stat = failing("stat", real.stat);
    faulty.lstat = failing("lstat", real.lstat);
    faulty.fstat = failing("fstat", real.fstat);
    faulty.readlink = failing("readlink", real.readlink);
    faulty.read = failing("read", real.read);
    faulty.fchown = failing("fchown", real.fchown);
    faulty.fchmod = failing("fchmod", real.fchmod);
    faulty.fsync = failing("fsync", real.fsync);
    faulty.rename = failing("rename", real.rename);
    faulty.unlink = failing("unlink", real.unlink);
    return faulty;
  }

  void forget() {
    made.clear();
    counted_ = 0;
  }

 private:
  template <typename Result, typename... Arguments>
  std::function<Result(Arguments...)> failing(std::string name, std::function<Result(Arguments...)> call) {
    return [this, name = std::move(name), call = std::move(call)](Arguments... arguments) {
      return fails(name) ? Result{-1} : call(arguments...);
    };
  }

  bool fails(const std::string& name) {
    made.push_back(name);
    if ((!failName.empty() && failName != name) || ++counted_ != failAt) return false;
    countFault();
    if (insteadOfFailing) insteadOfFailing();
    errno = error;
    return true;
  }

  std::size_t counted_ = 0;
};

}  // namespace vireon::tests
