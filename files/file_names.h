#pragma once

#include <string>
#include <string_view>

#include "form/fields.h"
#include "platform/file_store.h"
#include "platform/wall_clock.h"

namespace vireon::files {

// "yymmdd_hhmmss"
std::string dateTimeText(const platform::CalendarTime& time);

// The part of a path behind its last separator.
std::string_view fileNameOf(std::string_view path);

// A file name up to its first ".".
std::string_view baseNameOf(std::string_view path);

// The last "." of a file name and what follows, in small letters; empty where there is none.
std::string extensionOf(std::string_view path);

// Whether a typed name (UTF-8) may become a file's: without a path separator of any system, without ".." and
// without control characters.
bool isAllowedName(std::string_view name);

// The path of the file of that name in the folder, or of one whose name differs in the case of letters alone;
// the path of the name itself where there is neither.
std::string findFile(platform::FileStore& files, const std::string& folder, const std::string& name);

// The stem, or the stem with "_2", "_3" and so on, that no file of the folder has with this extension.
std::string freeName(platform::FileStore& files, const std::string& folder, const std::string& stem,
                     std::string_view extension);

// One of the boxes in which the user names a file, and the names that the program puts there.
class FileNameBox {
 public:
  static constexpr std::string_view kPlaceholder = "File Name";

  // All outlive this object, which the box calls from now on.
  FileNameBox(form::TextBox& box, platform::FileStore& files, const platform::WallClock& clock,
              std::string folder);
  FileNameBox(const FileNameBox&) = delete;
  FileNameBox& operator=(const FileNameBox&) = delete;
  ~FileNameBox() = default;

  // Empties the box of its placeholder.
  void clearPlaceholder();

  // Blanks alone and the placeholder count as empty.
  bool empty() const;

  // Whether the name is one that the program made and the user has not touched since.
  bool isMade() const { return made_; }

  // Puts a new name into the box: the prefix, date and time, and a number where a file of that name and
  // extension exists already.
  void make(const std::string& prefix, const std::string& extension);

  // Shows the name of a file that was chosen, UTF-8.
  void show(const std::string& name);

  // The file's name without its extension, UTF-8; empty when the box counts as empty.
  std::string name() const;

 private:
  form::TextBox& box_;
  platform::FileStore& files_;
  const platform::WallClock& clock_;
  std::string folder_;
  bool made_ = false;
};

}  // namespace vireon::files
