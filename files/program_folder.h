#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "files/list_values.h"
#include "form/main_form.h"
#include "platform/file_store.h"
#include "platform/message_box.h"

namespace vireon::files {

// The folder in which the saved files lie, and what the user learns of what becomes of them. Texts and paths
// are UTF-8.
class ProgramFolder {
 public:
  // All outlive this object.
  ProgramFolder(form::MainForm& form, platform::FileStore& files, platform::MessageBoxes& messages,
                std::string path)
      : form_(form), files_(files), messages_(messages), path_(std::move(path)) {}

  const std::string& path() const { return path_; }
  std::string pathOf(const std::string& name) const { return path_ + "/" + name; }
  bool has(const std::string& name) const { return files_.exists(pathOf(name)); }
  bool exists(const std::string& path) const { return files_.exists(path); }

  // Whether the name may become a file's; the user gets a message where it may not.
  bool allows(const std::string& name);

  // Puts the file of this name and extension there and says so on the status bar, with the remark if there is
  // one. False when that failed: then the user gets one message.
  bool save(const std::string& name, std::string_view extension, std::string_view bytes,
            std::string_view remark = {});

  // The file's bytes; none where it cannot be read or has more than `limit`: then the status bar says why.
  std::optional<std::string> read(const std::string& path, std::size_t limit);

  // The same without a word on the status bar: why it cannot be read goes to `problem`.
  std::optional<std::string> read(const std::string& path, std::size_t limit, std::string& problem);

  // A text for the status bar's panel 1.
  void say(const std::string& text);
  void sayLoaded(const std::string& path);
  void sayProblem(const std::string& path, const std::string& problem);
  // `values` says what the file holds.
  void sayProblem(const std::string& path, const ListReadResult& result, const std::string& values);

  // A message box under the window's title.
  void tell(const std::string& text, platform::MessageIcon icon = platform::MessageIcon::kNone);

  platform::MessageBoxes& messages() { return messages_; }

 private:
  std::string title() const;

  form::MainForm& form_;
  platform::FileStore& files_;
  platform::MessageBoxes& messages_;
  std::string path_;
};

}  // namespace vireon::files
