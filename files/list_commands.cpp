#include "files/list_commands.h"

#include <utility>

#include "files/list_text_file.h"
#include "files/list_view.h"

namespace vireon::files {

void ListCommands::save() {
  if (name_.empty() || name_.isMade()) {
    name_.make("Log_", kExtension);
  }
  const std::string name = name_.name();
  if (!folder_.allows(name)) {
    return;
  }
  if (isEmptyList(form_.grdLog)) {
    folder_.tell(kNoneData);
    return;
  }
  const int rows = writtenRows(form_.grdLog);
  const ListText text = [&] {
    ListProgress progress(work_, rows);
    return listText(form_.grdLog, rows, progress.function());
  }();
  if (text.cancelled) {
    folder_.say("Cancelled: nothing was saved");
    return;
  }
  const char* const remark = text.complete ? "" : "\"?\" stands for each letter that such a file cannot hold";
  if (folder_.save(name, kExtension, text.bytes, remark)) {
    folder_.tell("Complete Text file: \r\n" + folder_.pathOf(name + kExtension));
  }
}

void ListCommands::load(const std::string& path) {
  const auto file = folder_.read(path, kLargestListFile);
  if (!file) {
    return;
  }
  if (file->find('\0') != std::string::npos) {
    folder_.sayProblem(path, "it is no text file");
    return;
  }
  const std::size_t lines = listLines(*file);
  if (lines > kMostListLines) {
    folder_.sayProblem(path, "it has more than " + std::to_string(kMostListLines) + " lines");
    return;
  }
  ListRows list = [&] {
    ListProgress progress(work_, static_cast<int>(lines));
    return listRows(*file, progress.function());
  }();
  if (list.cancelled) {
    folder_.say("Cancelled: the list is as it was");
    return;
  }
  fillList(form_.grdLog, std::move(list.rows));
  beeper_.beep();
  folder_.sayLoaded(path);
}

}  // namespace vireon::files
