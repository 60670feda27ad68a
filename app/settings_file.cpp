#include "app/settings_file.h"

#include <optional>

#include "app/ini_text.h"

namespace vireon::app {

using platform::FileReadError;
using platform::FileReadResult;
using platform::FileReplace;

bool SettingsFile::fileExists(const std::string& path) {
  return store_.exists(path);
}

std::string SettingsFile::readIni(std::string_view section, std::string_view key, const std::string& file) {
  return iniValue(store_.read(file, kLongestFile).bytes, section, key);
}

bool SettingsFile::writeIni(std::string_view section, std::string_view key, std::string_view value,
                            const std::string& file) {
  const FileReadResult old = store_.read(file, kLongestFile);
  if (old.error != FileReadError::kNone && old.error != FileReadError::kNotFound) return false;
  const std::optional<std::string> text = withIniValue(old.bytes, section, key, value);
  if (!text || text->size() > kLongestFile) return false;
  return *text == old.bytes || store_.replace(file, *text) == FileReplace::kDone;
}

}  // namespace vireon::app
