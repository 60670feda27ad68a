#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Text files of one value a line, by the rules of list printing and list input.
namespace vireon::files {

inline constexpr std::string_view kLineEnd = "\r\n";
inline constexpr char kEndOfFile = '\x1A';  // ends a text file where one stands

// The file up to its end-of-file mark.
std::string_view untilEndOfFile(std::string_view file);

// A finite number as it is printed: a blank or a minus sign, the shortest form with ".", a blank.
std::string listNumber(double value);

// A caption as it is printed. Control characters, which no caption has, become blanks.
std::string listCaption(std::string_view caption);

// The number that a field reads as, "&H" with one or two hexadecimal digits included. None for other texts,
// an empty one among them, and for what no number holds.
std::optional<double> numberOfField(std::string_view field);

enum class ListError {
  kNone,
  kTooShort,  // the file ends before the last value
  kNoNumber,  // a field is no number, or not one of the range
};

struct ListReadResult {
  ListError error = ListError::kNone;
  int line = 0;  // of the field that was read last, from 1
};

// Reads fields one after the other. Lines end with CR LF, LF or CR.
class ListReader {
 public:
  explicit ListReader(std::string_view file) : rest_(untilEndOfFile(file)) {}

  // The next field without the blanks before it; it ends at a comma or at the end of its line, or, when it
  // begins with a quote, at the next one. None at the end of the file.
  std::optional<std::string_view> field();

  // The same, but what follows the field's comma in its line is passed over.
  std::optional<std::string_view> lineField();

  // Line of the field that was read last, from 1; 0 before the first.
  int line() const { return line_; }

 private:
  bool begin();
  std::string_view take(std::size_t length);
  void passLineEnd();

  std::string_view rest_;
  int line_ = 0;
  bool inLine_ = false;  // behind a comma
};

}  // namespace vireon::files
