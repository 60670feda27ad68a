#include "files/list_text_file.h"

#include <algorithm>

#include "files/list_values.h"
#include "files/time_text.h"
#include "form/text_encoding.h"

namespace vireon::files {
namespace {

bool isPlain(char letter) {
  return letter >= ' ' && letter <= '~';
}

bool isPlainText(std::string_view text) {
  return std::all_of(text.begin(), text.end(), isPlain);
}

// Appends a cell's text; False where a letter of it had to give way.
bool append(std::string& file, std::string_view cell) {
  if (isPlainText(cell)) {
    file += cell;
    return true;
  }
  form::Text1252 text = form::text1252FromUtf8(cell);
  for (char& letter : text.text) {
    if (static_cast<unsigned char>(letter) < ' ') {
      letter = ' ';
      text.complete = false;
    }
  }
  file += text.text;
  return text.complete;
}

std::string_view cellOf(const form::Grid& list, int row, int column) {
  return column < list.columns() ? std::string_view(list.text(row, column)) : std::string_view();
}

// The file's first line, which goes with its end.
std::string_view takeLine(std::string_view& file) {
  const std::size_t length = std::min(file.find_first_of("\r\n"), file.size());
  const std::string_view line = file.substr(0, length);
  file.remove_prefix(length);
  file.remove_prefix(file.starts_with(kLineEnd) ? 2 : std::min<std::size_t>(1, file.size()));
  return line;
}

void split(std::string_view line, ListRow& row) {
  for (std::string& cell : row) {
    const std::size_t length = std::min(line.find('\t'), line.size());
    const std::string_view field = line.substr(0, length);
    cell = isPlainText(field) ? std::string(field) : form::utf8From1252(field);
    if (length == line.size()) {
      return;
    }
    line.remove_prefix(length + 1);
  }
}

}  // namespace

int writtenRows(const form::Grid& list) {
  int rows = 0;
  while (rows < list.rows() && !list.text(rows, 0).empty()) {
    ++rows;
  }
  return rows;
}

ListText listText(const form::Grid& list, int rows, const Progress& progress) {
  ListText result;
  // The window lives meanwhile, and the list with it.
  for (int row = 0; row < std::min(rows, list.rows()); ++row) {
    for (int column = 0; column < kListColumns; ++column) {
      const std::string_view text = cellOf(list, row, column);
      const bool complete = append(result.bytes, column == 1 ? timeText(text) : std::string(text));
      result.complete = result.complete && complete;
      result.bytes += column + 1 < kListColumns ? "\t" : kLineEnd;
    }
    if ((row + 1) % kProgressLines == 0 && progress && !progress(row + 1)) {
      result.cancelled = true;
      return result;
    }
  }
  return result;
}

std::size_t listLines(std::string_view file) {
  file = untilEndOfFile(file);
  std::size_t lines = 0;
  for (; !file.empty(); ++lines) {
    takeLine(file);
  }
  return lines;
}

ListRows listRows(std::string_view file, const Progress& progress) {
  file = untilEndOfFile(file);
  ListRows result;
  while (!file.empty()) {
    split(takeLine(file), result.rows.emplace_back());
    if (result.rows.size() % kProgressLines == 0 && progress &&
        !progress(static_cast<int>(result.rows.size()))) {
      result.cancelled = true;
      return result;
    }
  }
  return result;
}

}  // namespace vireon::files
