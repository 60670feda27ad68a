#include "files/program_folder.h"

#include "files/file_names.h"
#include "files/save_failure.h"
#include "form/text_encoding.h"

namespace vireon::files {
namespace {

const char* reason(platform::FileReadError error) {
  switch (error) {
    case platform::FileReadError::kNotFound:
      return "there is no such file";
    case platform::FileReadError::kNoPermission:
      return "this account may not read it";
    case platform::FileReadError::kTooLarge:
      return "it is too large for a saved file";
    case platform::FileReadError::kFailed:
    case platform::FileReadError::kNone:
      break;
  }
  return "it cannot be read";
}

}  // namespace

bool ProgramFolder::allows(const std::string& name) {
  if (isAllowedName(name)) {
    return true;
  }
  tell("\"" + name +
           "\" cannot be the name of a file.\nA name has no \"/\", no \"\\\", no \"..\" and no control "
           "characters.",
       platform::MessageIcon::kExclamation);
  return false;
}

bool ProgramFolder::save(const std::string& name, std::string_view extension, std::string_view bytes,
                         std::string_view remark) {
  const std::string file = name + std::string(extension);
  const platform::FileReplace result = files_.replace(pathOf(file), bytes);
  if (result != platform::FileReplace::kDone) {
    messages_.show(saveFailure(title(), pathOf(file), result));
    return false;
  }
  std::string text = "Saved " + file;
  if (!remark.empty()) {
    text.append("; ").append(remark);
  }
  if (name.find('.') != std::string::npos) {
    text += "; loading cuts the name at its first dot";
  }
  say(text);
  return true;
}

std::optional<std::string> ProgramFolder::read(const std::string& path, std::size_t limit) {
  std::string problem;
  auto bytes = read(path, limit, problem);
  if (!bytes) {
    sayProblem(path, problem);
  }
  return bytes;
}

std::optional<std::string> ProgramFolder::read(const std::string& path, std::size_t limit,
                                               std::string& problem) {
  platform::FileReadResult result = files_.read(path, limit);
  if (result.error != platform::FileReadError::kNone) {
    problem = reason(result.error);
    return std::nullopt;
  }
  return std::move(result.bytes);
}

void ProgramFolder::say(const std::string& text) {
  form_.StatusBar1.setPanel(1, text);
}

void ProgramFolder::sayLoaded(const std::string& path) {
  say("Loaded " + std::string(fileNameOf(path)));
}

void ProgramFolder::sayProblem(const std::string& path, const std::string& problem) {
  say(std::string(fileNameOf(path)) + ": " + problem);
}

void ProgramFolder::sayProblem(const std::string& path, const ListReadResult& result,
                               const std::string& values) {
  const std::string line = std::to_string(result.line);
  sayProblem(path, result.error == ListError::kTooShort
                       ? "it ends after line " + line + ", before its last value"
                       : "line " + line + " is not " + values);
}

void ProgramFolder::tell(const std::string& text, platform::MessageIcon icon) {
  messages_.show({title(), text, icon, platform::MessageButtons::kOk});
}

std::string ProgramFolder::title() const {
  return form::utf8From1252(form_.caption());
}

}  // namespace vireon::files
