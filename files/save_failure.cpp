#include "files/save_failure.h"

namespace vireon::files {
namespace {

const char* reason(platform::FileReplace result) {
  switch (result) {
    case platform::FileReplace::kNoPermission:
      return "This account may not write there.";
    case platform::FileReplace::kNoSpace:
      return "There is no space left.";
    case platform::FileReplace::kNoFolder:
      return "The folder does not exist.";
    case platform::FileReplace::kFailed:
    case platform::FileReplace::kDone:
      break;
  }
  return "The disk or the folder does not take it.";
}

}  // namespace

platform::Message saveFailure(const std::string& title, const std::string& path,
                              platform::FileReplace result) {
  return {title, "The file was not saved:\n" + path + "\n\n" + reason(result),
          platform::MessageIcon::kExclamation};
}

}  // namespace vireon::files
