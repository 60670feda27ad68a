#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/file_store.h"

namespace vireon::app {

// Settings files of key and value lines in sections (see ini_text.h). Nothing is kept between calls.
class SettingsFile {
 public:
  static constexpr std::size_t kLongestFile = std::size_t{64} << 20;  // bytes

  // The store outlives this.
  explicit SettingsFile(platform::FileStore& store) : store_(store) {}

  // False for an empty path and for folders.
  bool fileExists(const std::string& path);

  // The whole text; empty where the file cannot be read or is longer than kLongestFile.
  std::string text(const std::string& file);

  // The value of at most 1023 bytes; empty where the key is absent and where the file cannot be read, is
  // longer than kLongestFile or is UTF-16.
  std::string readIni(std::string_view section, std::string_view key, const std::string& file);

  // Tells whether the file now has the value, up to its first line end or zero byte. A missing file is made;
  // one that has the value already is not written. One that readIni cannot read is left alone.
  bool writeIni(std::string_view section, std::string_view key, std::string_view value,
                const std::string& file);

  struct Entry {
    std::string_view section;
    std::string_view key;
    std::string_view value;
  };

  // The same for several, in their order: all of them are written or none.
  bool writeAll(std::initializer_list<Entry> entries, const std::string& file);

 private:
  platform::FileStore& store_;
};

}  // namespace vireon::app
