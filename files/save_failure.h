#pragma once

#include <string>

#include "platform/file_store.h"
#include "platform/message_box.h"

namespace vireon::files {

// The message about a file that could not be written; `result` is not kDone.
platform::Message saveFailure(const std::string& title, const std::string& path,
                              platform::FileReplace result);

}  // namespace vireon::files
