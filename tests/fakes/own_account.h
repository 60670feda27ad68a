#pragma once

#include <cstdlib>

#include "tests/fakes/temporary_folder.h"

namespace vireon::tests {

// From here on the process has settings, caches and a home of its own: nothing of this account is read or
// written.
class OwnAccount {
 public:
  OwnAccount() {
    for (const char* const name : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"}) {
      ::setenv(name, folder_.path().c_str(), 1);
    }
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace vireon::tests
