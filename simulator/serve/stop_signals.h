#pragma once

#include "adapters/posix/file_descriptor.h"

namespace vireon::simulator {

// Turns SIGINT and SIGTERM into something to read; SIGPIPE is ignored. For the process's only thread.
class StopSignals {
 public:
  // Throws std::runtime_error when the system refuses.
  StopSignals();

  // Readable once one has come.
  int descriptor() const { return signals_.number(); }

 private:
  adapters::FileDescriptor signals_;
};

}  // namespace vireon::simulator
