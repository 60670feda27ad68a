#include "app/settings_file.h"

#include <optional>
#include <utility>

#include "app/ini_text.h"

namespace vireon::app {

using platform::FileReadError;
using platform::FileReadResult;
using platform::FileReplace;

bool SettingsFile::fileExists(const std::string& path) {
  return store_.exists(path);
}

std::string SettingsFile::readIni(std::string_view section, std::string_view key, const std::string& file) {
  return iniValue(text(file), section, key);
}

std::string SettingsFile::text(const std::string& file) {
  return store_.read(file, kLongestFile).bytes;
}

bool SettingsFile::writeIni(std::string_view section, std::string_view key, std::string_view value,
                            const std::string& file) {
  return writeAll({{section, key, value}}, file);
}

bool SettingsFile::writeAll(std::initializer_list<Entry> entries, const std::string& file) {
  const FileReadResult old = store_.read(file, kLongestFile);
  // A file that is there all the same holds settings that a new one would lose.
  const bool missing = old.error == FileReadError::kNotFound && !store_.exists(file);
  if (old.error != FileReadError::kNone && !missing) return false;
  std::string text = old.bytes;
  for (const Entry& entry : entries) {
    std::optional<std::string> changed = withIniValue(text, entry.section, entry.key, entry.value);
    if (!changed || changed->size() > kLongestFile) return false;
    text = std::move(*changed);
  }
  return text == old.bytes || store_.replace(file, text) == FileReplace::kDone;
}

}  // namespace vireon::app
